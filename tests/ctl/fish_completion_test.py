"""Completion in fish. Usage: fish_completion_test.py VORNCTL COMPLETION"""

import pathlib
import subprocess
import sys
import tempfile
import unittest

import shell
import world

VORNCTL, COMPLETION = sys.argv[1:3]
WORLDS = pathlib.Path(__file__).resolve().parent / "worlds"

# A line up to its TAB, and what fish offers to put in the place of its last word.
OFFERED = {
    "a group": ("vornctl prof", ["profile"]),
    "a command": ("vornctl profile ren", ["rename"]),
    "an option": ("vornctl profile show --sh", ["--show-secrets"]),
    "a profile": ("vornctl profile show Ho", ["Home"]),
    "a profile with a blank": ("vornctl profile show Di", ["Dial up"]),
    "a profile from within its blank": (r"vornctl profile show Dial\ ", ["Dial up"]),
    "a profile in quotes": ("vornctl profile show 'Dial u", ["Dial up"]),
    "a profile of wide characters": ("vornctl profile delete 网", ["网络 Ä"]),
    "a profile behind an option with a value": ("vornctl link open --timeout 5 Ho", ["Home"]),
    "a field": ("vornctl profile set Home pref", ["preference="]),
    "a field's value": ("vornctl profile set Home preference=wifi-o", ["preference=wifi-only"]),
    "a type": ("vornctl setting set Level 5 --type int", ["integer"]),
    "a type behind its equals sign": ("vornctl setting set Level 5 --type=int", ["--type=integer"]),
    "a file": ("vornctl profile import a", ["a-file"]),
    "a file behind an equals sign": ("vornctl profile export --output=a", ["--output=a-file"]),
    "an operator of another script": ("vornctl operator search Про", ["Проба"]),
    "a plan": ("vornctl profile create New --operator Auto-Mobil --plan Con", ["Contract"]),
    "a plan behind its equals sign": (
        "vornctl profile create New --operator=Auto-Mobil --plan=Con",
        ["--plan=Contract"],
    ),
    "nothing for an unknown profile": ("vornctl profile show Zzz", []),
}


class Completion(unittest.TestCase):
    def test_offered(self):
        with tempfile.TemporaryDirectory(prefix="vornctl-") as name:
            folder = pathlib.Path(name)
            world.build(WORLDS / "three-profiles.json", folder / "root")
            (folder / "a-file").touch()
            env = shell.environment(folder, VORNCTL, folder / "root")
            for case, (line, expected) in OFFERED.items():
                with self.subTest(case):
                    script = "source $argv[1]; complete -C $argv[2]"
                    done = subprocess.run(
                        ["fish", "--no-config", "-c", script, COMPLETION, line],
                        cwd=folder, env=env, capture_output=True, text=True, check=True,
                    )
                    offered = [word.split("\t")[0] for word in done.stdout.splitlines()]
                    self.assertEqual((offered, done.stderr), (expected, ""))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
