"""The tour of the wizard as a whole program, with a root of its own. Usage: tour_test.py VORN_TOUR VORNCTL."""

import os
import pathlib
import struct
import subprocess
import sys
import tempfile
import unittest
import zlib

TOUR, VORNCTL = sys.argv.pop(1), sys.argv.pop(1)

LOOPBACK = '{ "bearer": "machine", "interfaces": { "cellular": "lo", "wifi": "lo" } }'
REFUSED = '{ "bearer": "scenario", "scenario": { "default": { "outcome": "fail", "cause": 5 } } }'
WIZARD = ("01-no-connection", "02-new-profile", "03-access-point", "04-end-of-the-form",
          "05-additional-settings", "06-ready-to-save", "07-saved")


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
        self.configure(LOOPBACK)
        self.vornctl("feature", "set", "431", "on")
        self.vornctl("setting", "set", "DefConnPrefer", "2")
        self.vornctl("profile", "create", "Profile1", "apn=first.example")
        self.vornctl("profile", "create", "Profile2", "apn=second.example")

    def configure(self, text):
        (self.root / "etc/network.json").write_text(text, encoding="utf-8")

    def vornctl(self, *words):
        return subprocess.run([VORNCTL, *words], env=self.environment, check=True, text=True,
                              capture_output=True).stdout

    def tour(self, *arguments):
        return subprocess.run([TOUR, *arguments], env=self.environment, text=True, check=False,
                              capture_output=True, timeout=100)

    def test_a_connection_is_made_with_the_wizard_and_a_link_opened_for_it(self):
        done = self.tour(str(self.pictures))
        lines = done.stdout.splitlines()
        self.assertEqual(done.returncode, 0, done.stdout + done.stderr)
        taken = [f"picture {self.pictures}/{name}.png" for name in (*WIZARD, "08-connecting")]
        self.assertEqual([line for line in lines if line.startswith("picture ")], taken)
        said = [line for line in lines[lines.index(taken[6]) + 1:] if line != taken[7]]
        self.assertEqual(said, [
            'getProfileIfNoFound: result 0, profile "Profile3"',
            'opening link 0 for "Profile3"',
            "connected: link 0, device lo, address 127.0.0.1",
            "closing link 0: result 0"])
        shown = self.vornctl("profile", "show", "Profile3", "--json")
        self.assertIn('"apn": "internet"', shown)

    def test_every_picture_is_there_and_shows_something_of_its_own(self):
        self.tour(str(self.pictures))
        files = sorted(self.pictures.iterdir())
        self.assertEqual([file.name for file in files],
                         [f"{name}.png" for name in (*WIZARD, "08-connecting")])
        seen = set()
        for file in files:
            with self.subTest(file.name):
                width, height, rows = picture(file)
                self.assertEqual((width, height), (240, 320))
                # Of one colour, every row would be the same.
                line = len(rows) // height
                self.assertGreater(len({rows[i:i + line] for i in range(0, len(rows), line)}), 30)
                self.assertNotIn(rows, seen)
                seen.add(rows)

    def test_a_link_that_does_not_open_is_said(self):
        self.configure(REFUSED)
        done = self.tour(str(self.pictures))
        self.assertEqual(done.returncode, 1)
        self.assertEqual(done.stdout.splitlines()[-1], "opening link 0 failed: causes 5 and 0")

    def test_a_folder_that_cannot_be_made_gets_the_usage(self):
        (self.root / "file").touch()
        for arguments in ((), (str(self.root / "file/below"),), ("one", "two")):
            with self.subTest(arguments):
                done = self.tour(*arguments)
                self.assertEqual(done.returncode, 2)
                self.assertEqual(done.stderr, "usage: vorn-tour FOLDER\n")


if __name__ == "__main__":
    unittest.main()
