"""Completion in an interactive bash. Usage: completion_test.py VORNCTL COMPLETION

A case types a line up to its TAB, and runs the line as bash then has it, with
a function in vornctl's place that prints its arguments.
"""

import pathlib
import sys
import tempfile
import unittest

import shell
import world

VORNCTL, COMPLETION = sys.argv[1:3]
WORLDS = pathlib.Path(__file__).resolve().parent / "worlds"

# What is typed before TAB, and the arguments that the line then has.
COMPLETED = {
    "a group": ("vornctl prof", ["profile"]),
    "a command": ("vornctl profile ren", ["profile", "rename"]),
    "the help": ("vornctl hel", ["help"]),
    "a command of the help": ("vornctl help profile ren", ["help", "profile", "rename"]),
    "a group of the help": ("vornctl help sett", ["help", "setting"]),
    "an option": ("vornctl profile show --sh", ["profile", "show", "--show-secrets"]),
    "a profile": ("vornctl profile show Ho", ["profile", "show", "Home"]),
    "a profile with a blank": ("vornctl profile show Di", ["profile", "show", "Dial up"]),
    "a profile from within its blank": (r"vornctl profile show Dial\ ", ["profile", "show", "Dial up"]),
    "a profile in double quotes": ('vornctl profile show "Dial', ["profile", "show", "Dial up"]),
    "a profile in single quotes": ("vornctl profile show 'Di", ["profile", "show", "Dial up"]),
    "a profile of wide characters": ("vornctl profile delete 网", ["profile", "delete", "网络 Ä"]),
    "a profile with what the shell reads": ("vornctl link open Co", ["link", "open", "Cost $HOME `id` \"q\""]),
    "a profile behind an option": ("vornctl link open --hold Ho", ["link", "open", "--hold", "Home"]),
    "a profile behind an option with a value": (
        "vornctl link open --timeout 5 Ho",
        ["link", "open", "--timeout", "5", "Home"],
    ),
    "a second profile": ("vornctl profile export Home Di", ["profile", "export", "Home", "Dial up"]),
    "a field": ("vornctl profile set Home pref", ["profile", "set", "Home", "preference="]),
    "a field's value": (
        "vornctl profile set Home preference=wifi-o",
        ["profile", "set", "Home", "preference=wifi-only"],
    ),
    "a file to import": ("vornctl profile import a\\ f", ["profile", "import", "a file"]),
    "a file to export to": ("vornctl profile export --output a\\ f", ["profile", "export", "--output", "a file"]),
    "a feature's value": ("vornctl feature set 431 of", ["feature", "set", "431", "off"]),
    "nothing for an unknown profile": ("vornctl profile show Zzz", ["profile", "show", "Zzz"]),
    "nothing for a password's field": ("vornctl profile set Home passw", ["profile", "set", "Home", "passw"]),
    "nothing for a command in a profile's place": ("vornctl link open doct", ["link", "open", "doct"]),
}

SETUP = (
    ". /usr/share/bash-completion/bash_completion; . {completion}; bind 'set bell-style none'; "
    "bind 'set enable-bracketed-paste off'; shopt -u progcomp_alias; touch 'a file'; "
    "shown() {{ printf '<%s>' \"$@\"; echo END; }}; echo RE''ADY\n"
)


class Completion(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.temporary = tempfile.TemporaryDirectory(prefix="vornctl-")
        folder = pathlib.Path(cls.temporary.name)
        world.build(WORLDS / "three-profiles.json", folder / "root")
        world.build_profile(folder / "root" / world.PROFILES / 'Cost $HOME `id` "q"', {})
        env = shell.environment(folder, VORNCTL, folder / "root")
        cls.bash = shell.Shell(["bash", "--norc", "--noprofile", "-i"], env, folder)
        cls.bash.type(SETUP.format(completion=COMPLETION))
        cls.bash.read_until("READY")

    @classmethod
    def tearDownClass(cls):
        cls.bash.__exit__()
        cls.temporary.cleanup()

    def arguments_after_tab(self, typed):
        """The arguments of the line after TAB: its first word is then replaced, and the line run."""
        since = len(self.bash.screen)
        home, delete_word = "\x01", "\x1bd"
        self.bash.type(f"{typed}\t{home}{delete_word}shown\n")
        self.bash.read_until("END\r\n", since)
        lines = self.bash.screen[since:].decode().splitlines()
        return next(line for line in lines if line.endswith("END"))

    def test_completed(self):
        for name, (typed, expected) in COMPLETED.items():
            with self.subTest(name):
                line = self.arguments_after_tab(typed)
                self.assertEqual(line, "".join(f"<{word}>" for word in expected) + "END")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
