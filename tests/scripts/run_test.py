"""./run and ./check as a person calls them, in a tree where nothing is left to install or to build.

Usage: run_test.py SOURCE_FOLDER BINARY_FOLDER
"""

import os
import pathlib
import re
import shutil
import signal
import socket
import subprocess
import sys
import tempfile
import time
import unittest

SOURCE, BINARY = (pathlib.Path(sys.argv.pop(1)).resolve() for _ in range(2))
PROGRAMS = ("ctl/vornctl", "example/vorn-example", "phone/vornphone")


def put_program(path, text):
    path.write_text(f"#!/bin/bash\n{text}\n", encoding="utf-8")
    path.chmod(0o755)


class Scripts(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="scripts-")
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.tree = self.folder / "tree"
        self.tree.mkdir()
        for name in ("run", "check"):
            shutil.copy(SOURCE / name, self.tree)
        for name in ("tools", "apps/example"):
            shutil.copytree(SOURCE / name, self.tree / name)
        for program in PROGRAMS:
            link = self.tree / "build/release/apps" / program
            link.parent.mkdir(parents=True)
            link.symlink_to(BINARY / "apps" / program)
        self.stubs = self.folder / "stubs"
        self.stubs.mkdir()
        self.calls = self.folder / "calls"
        note = f'echo "$(basename "$0") $*" >>"{self.calls}"'
        put_program(self.stubs / "cmake", note)
        for name in ("ctest", "clang-format", "apt-get", "sudo"):
            put_program(self.stubs / name, note)
        put_program(self.stubs / "dpkg-query", f'{note}; echo "install ok installed"')
        self.root = self.folder / "root"
        self.environment = {
            **os.environ, "PATH": f"{self.stubs}:{os.environ['PATH']}", "VORN_ROOT": str(self.root),
            "QT_QPA_PLATFORM": "offscreen", "XDG_RUNTIME_DIR": str(self.folder)}

    def script(self, *command, **options):
        return subprocess.run(command, cwd=options.pop("cwd", self.tree), env=self.environment,
                              text=True, capture_output=True, timeout=100, check=False)

    def store(self, name, password):
        secret = self.folder / "secret"
        secret.write_text(password + "\n", encoding="utf-8")
        subprocess.run([BINARY / "apps/ctl/vornctl", "profile", "create", "--password-file",
                        secret, "--", name, "apn=internet"],
                       env=self.environment, check=True, capture_output=True)

    def serves(self):
        """Whether the page server of the last run still answers."""
        text = (self.tree / "build/run/server.log").read_text(encoding="utf-8")
        port = int(re.search(r" port (\d+)", text).group(1))
        with socket.socket() as client:
            client.settimeout(5)
            return client.connect_ex(("127.0.0.1", port)) == 0

    def left(self):
        """What lies in build/run, in the order of the names."""
        return sorted(entry.name for entry in (self.tree / "build/run").iterdir())

    def traces(self, text):
        """The files of the tree in which the text stands."""
        return [path for path in (self.tree / "build/run").rglob("*")
                if path.is_file() and text.encode() in path.read_bytes()]


class Run(Scripts):
    def test_makes_the_phones_pictures_where_there_is_no_display(self):
        done = self.script("./run")
        self.assertEqual(done.returncode, 0, done.stdout + done.stderr)
        self.assertIn("\npicture build/run/tour/01-home.png\n", done.stdout)
        self.assertRegex(done.stdout, r"\npicture build/run/tour/\d\d-page.png\n")
        self.assertIn("Profile1", done.stdout)
        self.assertIn("The pictures lie in build/run/tour, the library's log is build/run/vornphone.log.",
                      done.stdout)
        self.assertIn("vornphone --web ", done.stdout)
        self.assertEqual(self.left(), ["page", "server.log", "tour", "vornphone.log"])
        self.assertFalse(self.serves())

    def test_opens_the_phone_where_there_is_a_display_and_says_what_to_press(self):
        phone = self.tree / "build/release/apps/phone/vornphone"
        phone.unlink()
        put_program(phone, 'echo "opened with $*"')
        del self.environment["QT_QPA_PLATFORM"]
        self.environment["DISPLAY"] = ":99"
        done = self.script("./run")
        self.assertEqual(done.returncode, 0, done.stdout + done.stderr)
        self.assertIn("F1 and F2 are the keys below the screen", done.stdout)
        self.assertIn("The library's log: build/run/vornphone.log", done.stdout)
        self.assertIn("opened with --log build/run/vornphone.log\n", done.stdout)

    def test_takes_a_stored_profile_and_leaves_no_copy_of_it(self):
        self.store("Mine", "correct-horse")
        done = self.script("./run", "Mine")
        self.assertEqual(done.returncode, 0, done.stdout + done.stderr)
        self.assertIn('opening link 0 for "Mine"', done.stdout)
        self.assertNotIn("correct-horse", done.stdout + done.stderr)
        self.assertEqual(self.left(), ["page", "server.log"])
        self.assertEqual(self.traces("correct-horse"), [])

    def test_takes_a_name_that_begins_with_a_dash(self):
        self.store("-x", "correct-horse")
        done = self.script("./run", "--", "-x")
        self.assertEqual(done.returncode, 0, done.stdout + done.stderr)
        self.assertIn('opening link 0 for "-x"', done.stdout)

    def test_leaves_no_copy_when_the_import_fails(self):
        self.store("Mine", "correct-horse")
        vornctl = self.tree / "build/release/apps/ctl/vornctl"
        vornctl.unlink()
        seen = self.folder / "seen"
        put_program(vornctl, f'[ "$2" != import ] || {{ cp -p build/run/profile.json "{seen}"; exit 9; }}\n'
                             f'exec "{BINARY}/apps/ctl/vornctl" "$@"')
        done = self.script("./run", "Mine")
        self.assertEqual(done.returncode, 9)
        self.assertIn("correct-horse", seen.read_text(encoding="utf-8"))
        self.assertEqual(seen.stat().st_mode & 0o777, 0o600)
        self.assertEqual(self.left(), [])

    def test_leaves_no_copy_when_it_is_ended_from_outside(self):
        self.store("Mine", "correct-horse")
        example = self.tree / "build/release/apps/example/vorn-example"
        example.unlink()
        pidfile = self.folder / "pid"
        put_program(example, f'echo $$ >"{pidfile}.new"; mv "{pidfile}.new" "{pidfile}"; exec sleep 60')
        for number in (signal.SIGTERM, signal.SIGHUP):
            with self.subTest(number):
                pidfile.unlink(missing_ok=True)
                with subprocess.Popen(["./run", "Mine"], cwd=self.tree, env=self.environment,
                                      stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL) as run:
                    for _ in range(1000):
                        if pidfile.exists():
                            break
                        time.sleep(0.05)
                    self.assertNotEqual(self.traces("correct-horse"), [], "while it runs")
                    self.assertTrue(self.serves())
                    run.send_signal(number)
                    os.kill(int(pidfile.read_text(encoding="utf-8")), signal.SIGTERM)
                self.assertNotEqual(run.returncode, 0)
                self.assertEqual(self.traces("correct-horse"), [])
                self.assertFalse(self.serves())

    def test_tells_of_a_profile_that_is_not_stored(self):
        done = self.script("./run", "Nobody")
        self.assertNotEqual(done.returncode, 0)
        self.assertIn("Nobody", done.stderr)
        self.assertEqual(self.left(), [])

    def test_says_what_it_does_from_any_folder_and_starts_nothing(self):
        for command in (("./run", "--help"), ("./run", "-h")):
            done = self.script(*command)
            self.assertEqual(done.returncode, 0)
            self.assertIn("Usage: ./run ", done.stdout)
            self.assertIn("$XDG_DATA_HOME/vorn", done.stdout)
        done = self.script("tree/run", "--help", cwd=self.folder)
        self.assertIn("Usage: ./run ", done.stdout)
        self.assertFalse(self.calls.exists())

    def test_refuses_what_it_does_not_know_and_starts_nothing(self):
        for arguments in (("--fast",), ("-x",), ("A", "http://h/", "more")):
            with self.subTest(arguments):
                done = self.script("./run", *arguments)
                self.assertEqual(done.returncode, 2)
                self.assertIn("see ./run --help", done.stderr)
        self.assertFalse(self.calls.exists())


class Check(Scripts):
    def test_says_what_it_does_and_starts_nothing(self):
        for word in ("--help", "-h"):
            done = self.script("tree/check", word, cwd=self.folder)
            self.assertEqual(done.returncode, 0)
            self.assertIn("Usage: ./check [--long]\n", done.stdout)
        self.assertFalse(self.calls.exists())

    def test_refuses_every_argument_and_starts_nothing(self):
        for arguments in (("fast",), ("--quick",), ("--", "x"), ("",)):
            with self.subTest(arguments):
                done = self.script("./check", *arguments)
                self.assertEqual(done.returncode, 2)
                self.assertIn("see ./check --help", done.stderr)
        self.assertFalse(self.calls.exists())

    def make_folders(self):
        for folder in ("bench", "examples", "include", "platform", "profiles", "session", "support", "tests",
                       "widgets", "wizard"):
            (self.tree / folder).mkdir()

    def test_goes_on_with_the_long_runs_when_asked(self):
        self.make_folders()
        programs = ("tests/long/all", "packaging/twice", "packaging/try", "docs/site/make")
        for program in programs:
            (self.tree / program).parent.mkdir(parents=True, exist_ok=True)
            put_program(self.tree / program, f'echo "$0" >>"{self.calls}"')
        self.assertEqual(self.script("./check").returncode, 0)
        self.assertNotIn("long", self.calls.read_text(encoding="utf-8"))
        self.assertEqual(self.script("./check", "--long").returncode, 0)
        calls = self.calls.read_text(encoding="utf-8").splitlines()
        self.assertEqual(tuple(calls[-len(programs):]), programs)
        put_program(self.tree / programs[0], "exit 3")
        self.assertEqual(self.script("./check", "--long").returncode, 3)

    def test_builds_and_tests_release_and_sanitizers(self):
        self.make_folders()
        done = self.script("./check")
        self.assertEqual(done.returncode, 0, done.stderr)
        calls = self.calls.read_text(encoding="utf-8")
        for preset in ("release", "asan"):
            self.assertIn(f"cmake --preset {preset} -DVORN_TESTS=ON", calls)
            self.assertIn(f"cmake --build --preset {preset}\n", calls)
            self.assertIn(f"ctest --preset {preset} ", calls)
        self.assertNotIn("apt-get", calls)


if __name__ == "__main__":
    unittest.main()
