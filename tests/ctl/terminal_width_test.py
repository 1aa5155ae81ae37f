"""Tables on a terminal fit it; everywhere else they are whole. Usage: terminal_width_test.py VORNCTL"""

import pathlib
import subprocess
import sys
import tempfile
import unicodedata
import unittest

import shell
import world

VORNCTL = sys.argv[1]
WORLDS = pathlib.Path(__file__).resolve().parent / "worlds"


def width(line):
    return sum(2 if unicodedata.east_asian_width(c) in "WF" else 1 for c in line)


class TerminalWidth(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="vornctl-")
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def on_terminal(self, name, columns, *words):
        world.build(WORLDS / f"{name}.json", self.folder / "root")
        self.env = shell.environment(self.folder, VORNCTL, self.folder / "root")
        line = f'stty cols {columns}; "$@"; echo END'
        with shell.Shell(["sh", "-c", line, "sh", VORNCTL, *words], self.env, self.folder) as terminal:
            return terminal.read_until("END\r\n").splitlines()

    def test_a_list_is_cut_to_the_terminal(self):
        lines = self.on_terminal("three-profiles", 40, "profile", "list")
        self.assertEqual(lines[0], "NAME     PREFEREN…  APN        CSD NUMB…")
        self.assertEqual(lines[3], "网络 Ä   wifi-the…  运营商.e…  -")
        self.assertLessEqual(max(map(width, lines)), 40)

    def test_a_list_that_fits_is_whole(self):
        lines = self.on_terminal("three-profiles", 80, "profile", "list")
        self.assertEqual(lines[3], "网络 Ä   wifi-then-cellular  运营商.example  -")

    def test_a_value_goes_on_below_itself(self):
        lines = self.on_terminal("hostile", 60, "profile", "show", "Odd")
        at = next(i for i, line in enumerate(lines) if line.startswith("GPRS APN"))
        self.assertEqual([line[27:] for line in lines[at : at + 4]], ["a" * 33] * 3 + ["a"])
        self.assertEqual([line[:27].strip() for line in lines[at + 1 : at + 4]], ["", "", ""])
        self.assertLessEqual(max(map(width, lines)), 60)

    def test_a_list_that_goes_elsewhere_is_whole(self):
        lines = self.on_terminal("three-profiles", 40, "profile", "list", "--fields", "name")
        self.assertEqual(lines[1], "Dial up")
        done = subprocess.run([VORNCTL, "profile", "list"], env=self.env, capture_output=True, text=True, check=True)
        self.assertIn("网络 Ä   wifi-then-cellular  运营商.example  -", done.stdout)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
