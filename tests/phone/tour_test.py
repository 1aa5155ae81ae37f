"""The phone's tour as a whole program, with a root of its own. Usage: tour_test.py VORNPHONE VORNCTL."""

import os
import pathlib
import struct
import subprocess
import sys
import tempfile
import unittest
import zlib

PHONE, VORNCTL = sys.argv.pop(1), sys.argv.pop(1)

HESITATING = '{ "bearer": "scenario", "scenario": { "default": { "afterMs": 500 } } }'
REFUSED = '{ "bearer": "scenario", "scenario": { "default": { "outcome": "fail", "cause": 5 } } }'
STEPS = ("home", "options", "no-connection", "new-profile", "access-point", "additional-settings", "saved",
         "connecting", "connected", "home-connected", "import", "export", "settings", "log", "links")


def picture(path):
    """Width, height and the bytes of the rows of a PNG file, whose parts must be whole."""
    data = path.read_bytes()
    assert data[:8] == b"\x89PNG\r\n\x1a\n", path
    at, rows, kinds = 8, b"", []
    while at < len(data):
        length, kind = struct.unpack(">I4s", data[at:at + 8])
        body = data[at + 8:at + 8 + length]
        assert zlib.crc32(kind + body) == struct.unpack(">I", data[at + 8 + length:at + 12 + length])[0]
        kinds.append(kind)
        rows += body if kind == b"IDAT" else b""
        at += 12 + length
    assert kinds[-1] == b"IEND", path
    return (*struct.unpack(">II", data[16:24]), zlib.decompress(rows))


class Tour(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="tour-")
        self.addCleanup(folder.cleanup)
        self.root = pathlib.Path(folder.name)
        self.pictures = self.root / "pictures"
        self.environment = {**os.environ, "VORN_ROOT": folder.name, "XDG_RUNTIME_DIR": folder.name,
                            "VORN_LANG": "en", "VORN_SCREEN": "240x320"}
        (self.root / "etc").mkdir()
        self.configure(HESITATING)

    def configure(self, text):
        (self.root / "etc/network.json").write_text(text, encoding="utf-8")

    def vornctl(self, *words):
        return subprocess.run([VORNCTL, *words], env=self.environment, check=True, text=True,
                              capture_output=True).stdout

    def tour(self, folder):
        return subprocess.run([PHONE, "--tour", str(folder)], env=self.environment, text=True, check=False,
                              capture_output=True, timeout=100)

    def names(self):
        return [f"{number:02}-{step}.png" for number, step in enumerate(STEPS, 1)]

    def test_a_connection_is_made_with_the_wizard_and_opened(self):
        done = self.tour(self.pictures)
        self.assertEqual(done.returncode, 0, done.stdout + done.stderr)
        lines = done.stdout.splitlines()
        self.assertEqual([line for line in lines if line.startswith("picture ")],
                         [f"picture {self.pictures}/{name}" for name in self.names()])
        self.assertIn("connected: link 0, device lo, address 127.0.0.1", lines)
        self.assertIn('"apn": "internet"', self.vornctl("profile", "show", "Profile1", "--json"))

    def test_every_picture_shows_the_display_and_something_of_its_own(self):
        self.tour(self.pictures)
        files = sorted(self.pictures.iterdir())
        self.assertEqual([file.name for file in files], self.names())
        seen = set()
        for file in files:
            with self.subTest(file.name):
                width, height, rows = picture(file)
                self.assertEqual(width, 240)
                self.assertGreater(height, 320)
                # Of one colour, every row would be the same.
                line = len(rows) // height
                self.assertGreater(len({rows[i:i + line] for i in range(0, len(rows), line)}), 30)
                self.assertNotIn(rows, seen)
                seen.add(rows)

    def test_a_link_that_does_not_open_ends_the_tour(self):
        self.configure(REFUSED)
        done = self.tour(self.pictures)
        self.assertEqual(done.returncode, 1)
        self.assertIn("vornphone: the tour could not ", done.stderr)

    def test_a_folder_that_cannot_be_made_ends_the_tour(self):
        self.pictures.touch()
        done = self.tour(self.pictures)
        self.assertEqual(done.returncode, 1)
        self.assertIn("vornphone: the tour could not take home\n", done.stderr)


if __name__ == "__main__":
    unittest.main()
