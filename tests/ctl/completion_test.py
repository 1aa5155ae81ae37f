"""Completion in an interactive bash or zsh. Usage: completion_test.py VORNCTL bash|zsh COMPLETION

A case types a line up to its TAB, and runs the line as the shell then has it, with
a function in vornctl's place that prints its arguments.
"""

import pathlib
import re
import sys
import tempfile
import unittest

import shell
import world

VORNCTL, SHELL, COMPLETION = sys.argv[1:4]
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
    "a setting": ("vornctl setting get Def", ["setting", "get", "DefConnPrefer"]),
    "a setting to remove": ("vornctl setting delete Roaming Def", ["setting", "delete", "Roaming", "DefConnPrefer"]),
    "a truth value": ("vornctl setting set Roaming f", ["setting", "set", "Roaming", "false"]),
    "a type": ("vornctl setting set Level 5 --type int", ["setting", "set", "Level", "5", "--type", "integer"]),
    "a type behind its equals sign": (
        "vornctl setting set Level 5 --type=tr",
        ["setting", "set", "Level", "5", "--type=truth"],
    ),
    "a feature": ("vornctl feature get 43", ["feature", "get", "431"]),
    "a field to show": ("vornctl profile list --fields name,dns", ["profile", "list", "--fields", "name,dns"]),
    "the second field to show": (
        "vornctl profile list --fields name,csd-n",
        ["profile", "list", "--fields", "name,csd-number"],
    ),
    "a field of the settings": ("vornctl setting list --fields ty", ["setting", "list", "--fields", "type"]),
    "a file behind an equals sign": (
        "vornctl profile export --output=a\\ f",
        ["profile", "export", "--output=a file"],
    ),
    "an operator": ("vornctl operator search Auto", ["operator", "search", "Auto-Mobil"]),
    "an operator behind its option": (
        "vornctl profile create New --operator Про",
        ["profile", "create", "New", "--operator", "Проба"],
    ),
    "a plan": (
        "vornctl profile create New --operator Auto-Mobil --plan Con",
        ["profile", "create", "New", "--operator", "Auto-Mobil", "--plan", "Contract"],
    ),
    "a field of the operators": (
        "vornctl operator search auto --fields country-",
        ["operator", "search", "auto", "--fields", "country-name"],
    ),
    "a feature's value": ("vornctl feature set 431 of", ["feature", "set", "431", "off"]),
    "nothing for an unknown profile": ("vornctl profile show Zzz", ["profile", "show", "Zzz"]),
    "nothing for a password's field": ("vornctl profile set Home passw", ["profile", "set", "Home", "passw"]),
    "nothing for a command in a profile's place": ("vornctl link open doct", ["link", "open", "doct"]),
}

SHOWN = "shown() {{ printf '<%s>' \"$@\"; echo END; }}; touch 'a file'; echo RE''ADY\n"
SHELLS = {
    "bash": (
        ["bash", "--norc", "--noprofile", "-i"],
        ". /usr/share/bash-completion/bash_completion; . {completion}; bind 'set bell-style none'; "
        "bind 'set enable-bracketed-paste off'; shopt -u progcomp_alias; " + SHOWN,
    ),
    "zsh": (
        ["zsh", "-f", "-i"],
        "fpath=({folder} $fpath); autoload -Uz compinit; compinit -u -D; bindkey -e; unsetopt beep; "
        "unset zle_bracketed_paste; PS1='$ '; " + SHOWN,
    ),
}


class Completion(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.temporary = tempfile.TemporaryDirectory(prefix="vornctl-")
        folder = pathlib.Path(cls.temporary.name)
        world.build(WORLDS / "three-profiles.json", folder / "root")
        world.build_profile(folder / "root" / world.PROFILES / 'Cost $HOME `id` "q"', {})
        env = shell.environment(folder, VORNCTL, folder / "root")
        (folder / "root/etc").mkdir(exist_ok=True)
        (folder / "root/etc/settings.json").write_text('{"DefConnPrefer": 1, "Roaming": true}')
        (folder / "root/etc/features.json").write_text('{"431": true}')
        argv, setup = SHELLS[SHELL]
        cls.shell = shell.Shell(argv, env, folder)
        cls.shell.type(setup.format(completion=COMPLETION, folder=pathlib.Path(COMPLETION).parent))
        cls.shell.read_until("READY")

    @classmethod
    def tearDownClass(cls):
        cls.shell.__exit__()
        cls.temporary.cleanup()

    def arguments_after_tab(self, typed):
        """The arguments of the line after TAB: its first word is then replaced, and the line run."""
        since = len(self.shell.screen)
        home, delete_word = "\x01", "\x1bd"
        self.shell.type(f"{typed}\t{home}{delete_word}shown\n")
        self.shell.read_until("END\r\n", since)
        found = re.findall(r"<[^\r\n]*END\r", self.shell.screen[since:].decode())
        return found[-1].rstrip("\r")

    def test_completed(self):
        for name, (typed, expected) in COMPLETED.items():
            with self.subTest(name):
                line = self.arguments_after_tab(typed)
                self.assertEqual(line, "".join(f"<{word}>" for word in expected) + "END")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
