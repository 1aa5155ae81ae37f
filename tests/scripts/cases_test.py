"""A test program told case by case (tests/common/cases.sh), with a program of its own in the place of one.

Usage: cases_test.py SOURCE_FOLDER
"""

import pathlib
import subprocess
import sys
import tempfile
import unittest

SCRIPT = pathlib.Path(sys.argv.pop(1)) / "tests/common/cases.sh"

# Says what it is called with, lists three cases, and crashes in the third when all are to run.
PROGRAM = """#!/bin/sh
echo "$*" >>"$0.calls"
case "$*" in
--gtest_list_tests)
    printf 'Running main() from somewhere.cc\\nThing.\\n  Works\\nEach/Thing.\\n  Counts/0  # GetParam() = 7\\n' ;;
"")
    printf '[ RUN      ] Thing.Works\\nunfinished line[       OK ] Thing.Works (0 ms)\\n'
    printf '[ RUN      ] Thing.Fails\\nthe reason\\n[  FAILED  ] Thing.Fails (1 ms)\\n'
    printf '[ RUN      ] Each/Thing.Fails/0\\n[  FAILED  ] Each/Thing.Fails/0, where GetParam() = 7 (1 ms)\\n'
    printf '[ RUN      ] Thing.Skips\\nwhy\\n[  SKIPPED ] Thing.Skips (0 ms)\\n'
    printf '[ RUN      ] Thing.Crashes\\n'
    kill -SEGV $$ ;;
--gtest_filter=Thing.Crashes) exit 3 ;;
esac
"""


class Cases(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="cases-")
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.program = self.folder / "program"
        self.program.write_text(PROGRAM, encoding="utf-8")
        self.program.chmod(0o755)

    def run_script(self, *arguments, before=("sh",)):
        return subprocess.run([*before, SCRIPT, *arguments], text=True, capture_output=True, check=False)

    def whole(self, before=("sh",)):
        return self.run_script(self.folder / "log", self.program, before=before)

    def case(self, name):
        return self.run_script(self.folder / "log", self.program, name)

    def calls(self):
        return pathlib.Path(f"{self.program}.calls").read_text(encoding="utf-8").splitlines()

    def test_a_program_that_crashes_fails_and_is_shown(self):
        done = self.whole()
        self.assertNotEqual(done.returncode, 0)
        self.assertIn("[ RUN      ] Thing.Crashes", done.stdout)

    def test_a_case_that_passed_in_the_whole_is_not_run_again(self):
        self.whole()
        self.assertEqual(self.case("Thing.Works").returncode, 0)
        self.assertEqual(self.calls(), [""])

    def test_a_case_that_failed_in_the_whole_fails_with_what_it_said(self):
        self.whole()
        done = self.case("Thing.Fails")
        self.assertEqual((done.returncode, done.stdout),
                         (1, "[ RUN      ] Thing.Fails\nthe reason\n[  FAILED  ] Thing.Fails (1 ms)\n"))
        self.assertEqual(self.case("Each/Thing.Fails/0").returncode, 1)
        self.assertEqual(self.calls(), [""])

    def test_a_case_that_was_skipped_says_so(self):
        self.whole()
        self.assertIn("why\n[  SKIPPED ]", self.case("Thing.Skips").stdout)

    def test_a_case_that_the_whole_did_not_end_runs_alone(self):
        self.whole()
        self.assertEqual(self.case("Thing.Crashes").returncode, 3)
        self.assertEqual(self.calls(), ["", "--gtest_filter=Thing.Crashes"])

    def test_a_case_whose_name_only_begins_like_another_is_not_taken_for_it(self):
        self.whole()
        self.case("Thing.Work")
        self.case("Thing.Fail")
        self.assertEqual(self.calls(), ["", "--gtest_filter=Thing.Work", "--gtest_filter=Thing.Fail"])

    def test_the_log_of_another_run_is_not_believed(self):
        # A shell stands for the other ctest.
        self.whole(before=("sh", "-c", 'sh "$@"; exit $?', "-"))
        self.case("Thing.Works")
        self.assertEqual(self.calls(), ["", "--gtest_filter=Thing.Works"])

    def test_lists_the_cases_without_what_they_are_called_with(self):
        done = self.run_script("--list", self.folder / "list", self.program)
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertEqual((self.folder / "list").read_text(encoding="utf-8"),
                         "Thing.Works\nEach/Thing.Counts/0\n")

    def test_refuses_a_program_without_cases(self):
        self.program.write_text("#!/bin/sh\necho Running main\n", encoding="utf-8")
        done = self.run_script("--list", self.folder / "list", self.program)
        self.assertEqual(done.returncode, 1)
        self.assertIn("no test in", done.stderr)


if __name__ == "__main__":
    unittest.main()
