"""The commands for packages, supply and documents say what they do, and refuse what they do not know.

Usage: commands_test.py SOURCE_FOLDER
"""

import pathlib
import subprocess
import sys
import tempfile
import unittest

SOURCE = pathlib.Path(sys.argv.pop(1)).resolve()
COMMANDS = ("packaging/build", "packaging/try", "packaging/twice", "packaging/supply", "docs/site/make")


class Commands(unittest.TestCase):
    def call(self, command, *arguments):
        # From another folder, and with no other program than those of every system within reach.
        with tempfile.TemporaryDirectory() as folder:
            return subprocess.run([SOURCE / command, *arguments], cwd=folder, env={"PATH": "/usr/bin:/bin"}, text=True,
                                  capture_output=True, timeout=60, check=False)

    def test_each_says_what_it_does(self):
        for command in COMMANDS:
            for word in ("--help", "-h"):
                done = self.call(command, word)
                self.assertEqual((done.returncode, done.stderr), (0, ""), command)
                self.assertIn(f"\nUsage: {command}", done.stdout)

    def test_each_refuses_what_it_does_not_know(self):
        for command in COMMANDS:
            for arguments in (("--fast",), ("one", "two")):
                done = self.call(command, *arguments)
                self.assertEqual((done.returncode, done.stdout), (2, ""), command)
                self.assertIn(f"see {command} --help", done.stderr)

    def test_without_packages_there_is_nothing_to_try(self):
        with tempfile.TemporaryDirectory() as folder:
            done = self.call("packaging/try", folder)
        self.assertEqual(done.returncode, 1)
        self.assertIn("packaging/build makes them", done.stderr)


if __name__ == "__main__":
    unittest.main()
