"""What tools/setup.sh says when a build fails, with a cmake of its own that fails as wanted.

Usage: setup_test.py SOURCE_FOLDER
"""

import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

SOURCE = pathlib.Path(sys.argv.pop(1))
HINT = "the release build failed; the whole log is in build/release.log\n"


class FailingBuild(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def build(self, cmake):
        """Builds with a cmake of these shell lines, under the options of run and check."""
        program = self.folder / "cmake"
        program.write_text(f"#!/bin/sh\n{cmake}\n", encoding="utf-8")
        program.chmod(0o755)
        script = f'set -euo pipefail; . "{SOURCE}/tools/setup.sh"; build release --target x; echo built'
        return subprocess.run(["bash", "-c", script], cwd=self.folder, text=True, check=False,
                              capture_output=True, timeout=60,
                              env={**os.environ, "PATH": f"{self.folder}:{os.environ['PATH']}"})

    def log(self):
        return (self.folder / "build/release.log").read_text(encoding="utf-8")

    def test_a_build_that_works_is_quiet(self):
        done = self.build("echo error: is only a word here")
        self.assertEqual((done.returncode, done.stdout, done.stderr), (0, "built\n", ""))

    def test_very_many_errors_are_cut_and_the_log_is_named(self):
        done = self.build('seq -f "file.cpp:%.0f: error: a message that fills a line of a log" 200000; exit 1')
        lines = done.stderr.splitlines(keepends=True)
        self.assertEqual(done.returncode, 1)
        self.assertEqual(len(lines), 61)
        self.assertTrue(lines[0].startswith("file.cpp:1: error:"))
        self.assertTrue(lines[-1].endswith(HINT))
        self.assertEqual(len(self.log().splitlines()), 200000)

    def test_an_error_is_shown_with_the_lines_that_follow_it(self):
        done = self.build("echo before; echo FAILED: x.o; seq 100; exit 1")
        self.assertEqual(done.returncode, 1)
        self.assertNotIn("before", done.stderr)
        self.assertIn("FAILED: x.o\n" + "".join(f"{i}\n" for i in range(1, 13)), done.stderr)
        self.assertNotIn("\n13\n", done.stderr)
        self.assertTrue(done.stderr.endswith(HINT))

    def test_a_log_that_names_no_error_is_shown_from_its_end(self):
        done = self.build("seq 100; echo ninja: build stopped; exit 1")
        self.assertEqual(done.returncode, 1)
        self.assertTrue(done.stderr.startswith("82\n"))
        self.assertIn("\n100\nninja: build stopped\n", done.stderr)
        self.assertTrue(done.stderr.endswith(HINT))

    def test_an_empty_log_is_named(self):
        done = self.build("exit 1")
        self.assertEqual(done.returncode, 1)
        self.assertTrue(done.stderr.endswith(HINT))


if __name__ == "__main__":
    unittest.main()
