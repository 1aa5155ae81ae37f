#!/usr/bin/env python3
"""The laboratory itself: that its services work and that nothing of it stays.

Usage: lab_test.py [--rootless] [unittest arguments]
"""

import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

LAB = os.path.join(os.path.dirname(os.path.abspath(__file__)), "lab")
OPTIONS = ["--rootless"] if "--rootless" in sys.argv else []

DIAL = """
nmcli connection add type gsm ifname ttyHS0 con-name call autoconnect no \\
    apn web.example user ursula password secret-of-ursula &&
nmcli connection up call && ip -4 address show hso0 && cat /run/lab/modem.log"""


def run(*words, options=(), environment=()):
    return subprocess.run([LAB, *OPTIONS, *options, *words], stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                          env={**os.environ, **dict(environment)}, text=True, timeout=60, check=False)


def command_lines():
    for process in filter(str.isdigit, os.listdir("/proc")):
        try:
            with open(f"/proc/{process}/cmdline", encoding="utf-8") as file:
                yield file.read()
        except OSError:
            continue


class Laboratory(unittest.TestCase):
    def test_gives_an_address_and_a_name_over_ethernet(self):
        done = run("sh", "-c", "nmcli device connect eth9 && ip -4 address show eth9 && getent hosts lab.example")
        self.assertEqual(done.returncode, 0, done.stdout + done.stderr)
        self.assertRegex(done.stdout, r"inet 10\.77\.0\.")
        self.assertRegex(done.stdout, r"10\.77\.0\.1 +lab.example")

    def test_dials_with_the_access_point_and_the_password(self):
        done = run("sh", "-c", DIAL, options=["--modem"])
        self.assertEqual(done.returncode, 0, done.stdout + done.stderr)
        self.assertIn("inet 10.99.0.2/", done.stdout)
        for command in ('"IP","web.example"', '"secret-of-ursula","ursula"', "AT_OWANCALL=1,1,1"):
            self.assertIn(command, done.stdout)

    def test_shows_a_locked_sim(self):
        done = run("mmcli", "--modem", "any", options=["--modem", "--say", "pin 1234"])
        self.assertRegex(done.stdout, "lock: .*sim-pin")

    def test_ends_as_its_command_does(self):
        self.assertEqual(run("sh", "-c", "exit 23").returncode, 23)

    def test_names_an_option_that_there_is_not(self):
        done = run("true", options=["--modme"])
        self.assertEqual((done.returncode, done.stderr.count("--modme")), (2, 1))

    def test_says_by_name_that_the_kernel_gives_no_namespaces(self):
        with tempfile.TemporaryDirectory() as folder:
            refusing = pathlib.Path(folder, "unshare")
            refusing.write_text("#!/bin/sh\necho 'unshare: unshare failed: Operation not permitted' >&2\nexit 1\n",
                                encoding="ascii")
            refusing.chmod(0o755)
            os.chmod(folder, 0o755)
            done = run("true", environment={"PATH": folder + ":" + os.environ["PATH"]}.items())
        self.assertEqual(done.returncode, 77, done.stderr)
        self.assertIn("this kernel gives no namespaces: unshare: unshare failed: Operation not permitted", done.stderr)

    def test_says_that_an_ordinary_user_has_no_rights_to_lose(self):
        done = run("true", options=["--rootless", "--rights"])
        self.assertEqual(done.returncode, 77, done.stderr)
        self.assertIn("--rights needs root", done.stderr)

    def test_leaves_nothing_on_the_machine(self):
        seconds = f"98765.{os.getpid()}"
        done = run("sh", "-c", f"echo left >/run/left-{seconds}; sleep {seconds} >&- 2>&- & cat /run/lab/nm.pid")
        self.assertRegex(done.stdout, r"^[0-9]+$")
        self.assertFalse(os.path.exists(f"/run/left-{seconds}"))
        self.assertEqual([line for line in command_lines() if seconds in line], [])


if __name__ == "__main__":
    unittest.main(argv=[word for word in sys.argv if word != "--rootless"], verbosity=2)
