"""Passwords typed on a terminal. Usage: password_prompt_test.py VORNCTL"""

import pathlib
import signal
import subprocess
import sys
import tempfile
import unittest

import shell
import world

VORNCTL = sys.argv[1]
WORLDS = pathlib.Path(__file__).resolve().parent / "worlds"


class PasswordPrompt(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="vornctl-")
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        world.build(WORLDS / "three-profiles.json", self.folder / "root")
        self.env = shell.environment(self.folder, VORNCTL, self.folder / "root")

    def run_on_terminal(self, *words):
        return shell.Shell([VORNCTL, *words], self.env, self.folder)

    def shown(self):
        words = [VORNCTL, "profile", "show", "Home", "--show-secrets"]
        done = subprocess.run(words, env=self.env, capture_output=True, text=True, check=True)
        return [line.split("password", 1)[1].strip() for line in done.stdout.splitlines() if "password" in line]

    def test_what_is_typed_is_stored_and_not_shown(self):
        with self.run_on_terminal("profile", "set", "Home", "--password", "--csd-password") as terminal:
            terminal.read_until("GPRS password: ")
            self.assertFalse(terminal.echo_is_on())
            terminal.type("typed first\n")
            terminal.read_until("CSD password: ")
            self.assertFalse(terminal.echo_is_on())
            terminal.type("typed second\n")
            self.assertEqual(terminal.wait(), 0)
            self.assertNotIn(b"typed", terminal.screen)
        self.assertEqual(self.shown(), ["typed first", "typed second"])

    def test_what_another_program_changes_while_a_person_types_is_kept(self):
        with self.run_on_terminal("profile", "set", "Home", "--password", "proxy1=proxy.typed") as terminal:
            terminal.read_until("GPRS password: ")
            words = [VORNCTL, "profile", "set", "Home", "apn=other", "user=other"]
            subprocess.run(words, env=self.env, capture_output=True, check=True)
            terminal.type("typed later\n")
            self.assertEqual(terminal.wait(), 0)
        self.assertEqual(self.shown()[0], "typed later")
        words = [VORNCTL, "profile", "show", "Home"]
        shown = subprocess.run(words, env=self.env, capture_output=True, text=True, check=True).stdout
        for value in ("proxy.typed", "GPRS APN                   other", "GPRS user name             other"):
            self.assertIn(value, shown)

    def test_an_interrupt_turns_the_echo_on_again_and_changes_nothing(self):
        with self.run_on_terminal("profile", "set", "Home", "--password") as terminal:
            terminal.read_until("GPRS password: ")
            terminal.type("half\x03")
            self.assertEqual(terminal.wait(), -signal.SIGINT)
            self.assertTrue(terminal.echo_is_on())
        self.assertEqual(self.shown(), ["open sesame", "-"])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
