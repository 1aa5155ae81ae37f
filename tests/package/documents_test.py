"""What the documents tell a reader to type does what they say. Usage: documents_test.py PREFIX [COMPILER-FLAGS]

PREFIX is an installation. docs/first-steps.md is followed word for word; of the other documents each vornctl command has to be
one that vornctl understands, and each other command one that a test of its own runs.
"""

import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

import commands

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
PREFIX = pathlib.Path(sys.argv.pop(1)).resolve()
FLAGS = sys.argv.pop(1) if len(sys.argv) > 1 else ""
DOCUMENTS = ("README.md", "CONTRIBUTING.md", *sorted(str(path.relative_to(ROOT)) for path in ROOT.glob("docs/*.md")))

# How commands begin that other tests run, or that change the reader's own machine.
ELSEWHERE = {
    "./run": "tests/scripts/run_test.py", "./check": "tests/scripts/run_test.py", "g++ ": "tests/package/install_test.sh",
    "cmake ": "every check", "ctest ": "every check", "build/debug/tests/": "every check", "tools/format.sh": "every check",
    "tests/fuzz/run": "tests/fuzz", "sudo apt": "packaging/try", "(umask 077": "a line of the shell",
    "echo '{": "a line of the shell",
}
STAND_INS = (("WORDS", "'Telekom Srbija rs'"), ("NAME", "Internet"))


class World(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="documents-")
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.environment = {
            **os.environ, "HOME": folder.name, "PATH": f"{PREFIX}/bin:{os.environ['PATH']}", "CMAKE_PREFIX_PATH": str(PREFIX),
            "QT_QPA_PLATFORM": "offscreen", "XDG_RUNTIME_DIR": folder.name, "CXXFLAGS": FLAGS, "LC_ALL": "C.UTF-8",
            "VORN_ROOT": f"{folder.name}/root", "DBUS_SYSTEM_BUS_ADDRESS": f"unix:path={folder.name}/no-bus"}

    def shell(self, script, timeout=200):
        return subprocess.run(["bash", "-ec", script], cwd=self.folder, env=self.environment, capture_output=True, text=True,
                              timeout=timeout, check=False)


class FirstSteps(World):
    def test_they_do_word_for_word_what_they_say(self):
        text = (ROOT / "docs/first-steps.md").read_text(encoding="utf-8")
        mark, script, expected = "-- step --", [], []
        for kind, first, second in commands.steps(text):
            if kind == "write":
                path = self.folder / first
                path.parent.mkdir(parents=True, exist_ok=True)
                path.write_text(second, encoding="utf-8")
            else:
                script.append(first)
                expected.append(second)
        done = self.shell(f"\necho '{mark}'\n".join(script))
        self.assertEqual(done.returncode, 0, done.stdout + done.stderr)
        printed = done.stdout.replace(str(self.folder), "/home/me").split(f"{mark}\n")
        self.assertEqual([text for text, wanted in zip(printed, expected) if wanted is not None],
                         [wanted for wanted in expected if wanted is not None], done.stderr)
        self.assertGreater(len(printed), 5)


class Commands(World):
    def test_each_vornctl_command_is_one_that_vornctl_understands(self):
        self.shell("vornctl profile create Internet apn=internet")
        for document in DOCUMENTS:
            for command in commands.commands((ROOT / document).read_text(encoding="utf-8")):
                if not command.startswith("vornctl ") or document == "docs/first-steps.md":
                    continue
                for name, stand_in in STAND_INS:
                    command = command.replace(name, stand_in)
                with self.subTest(f"{document}: {command}"):
                    done = self.shell(f"timeout --signal=INT 5 {command} </dev/null")
                    # 2 is a command line that is wrong, 20 a failure of vornctl itself.
                    self.assertNotIn(done.returncode, (2, 20, 126, 127), done.stderr)

    def test_each_other_command_is_run_by_a_test(self):
        unused = set(ELSEWHERE)
        for document in DOCUMENTS:
            if document == "docs/first-steps.md":
                continue
            for command in commands.commands((ROOT / document).read_text(encoding="utf-8")):
                known = [start for start in (*ELSEWHERE, "vornctl ") if command.startswith(start)]
                self.assertTrue(known, f"{document}: {command}")
                unused -= set(known)
        self.assertEqual(unused, set())


class Reading(unittest.TestCase):
    def test_a_block_of_text_is_what_the_commands_before_it_print(self):
        text = "```sh\na # why\n```\nthen\n```text\nout\n```\n```sh quiet\nb\n```\n```cpp file=x/y\nint z;\n```\n```sh apart\nc\n```\n"
        self.assertEqual(commands.steps(text), [["run", "a # why\n", "out\n"], ["run", "b\n", None], ["write", "x/y", "int z;\n"]])
        self.assertEqual(list(commands.commands(text)), ["a", "b"])


if __name__ == "__main__":
    unittest.main()
