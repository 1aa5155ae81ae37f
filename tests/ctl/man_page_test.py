"""The manual page says what the program says. Usage: man_page_test.py VORNCTL MAN_PAGE"""

import re
import subprocess
import sys
import unittest

VORNCTL, PAGE = sys.argv[1:3]


def help_of(*words):
    done = subprocess.run([VORNCTL, *words, "--help"], capture_output=True, text=True, check=True)
    return done.stdout


def commands_of(text):
    section = text.split("Commands:\n", 1)
    return re.findall(r"^  (\w+)  ", section[1].split("\n\n")[0], re.MULTILINE) if len(section) > 1 else []


def options_of_help(leaf):
    found = re.findall(r"^  (?:-\w,)?--([a-z-]+)(?: ([A-Z]+)(?= |$))?", help_of(*leaf), re.MULTILINE)
    return {option: value.lower() for option, value in found if option != "help"}


class ManPage(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        with open(PAGE, encoding="utf-8") as page:
            cls.source = page.read()

    def synopsis(self):
        return self.source.split(".Sh SYNOPSIS")[1].split(".Sh DESCRIPTION")[0]

    def leaves(self):
        groups = commands_of(help_of())
        self.assertGreaterEqual(len(groups), 5)
        for group in groups:
            children = commands_of(help_of(group))
            yield from ([group, child] for child in children) if children else [[group]]

    def test_it_is_free_of_lint(self):
        done = subprocess.run(["mandoc", "-Tlint", PAGE], capture_output=True, text=True, check=False)
        self.assertEqual((done.stdout, done.returncode), ("", 0))

    def test_its_synopsis_names_every_command(self):
        named = re.findall(r"^\.Cm ([a-z ]+)$", self.synopsis(), re.MULTILINE)
        self.assertEqual(named, [" ".join(leaf) for leaf in self.leaves()])

    def test_its_synopsis_has_the_options_of_each_command(self):
        for leaf in self.leaves():
            with self.subTest(command=" ".join(leaf)):
                self.assertEqual(self.options_of_synopsis(leaf), options_of_help(leaf))
                self.assertEqual(
                    "Fl -json Op Fl -show-secrets" in self.part_of_synopsis(leaf),
                    "--show-secrets Needs: --json" in help_of(*leaf),
                )

    def test_the_completion_offers_the_options_of_each_command(self):
        for leaf in self.leaves():
            with self.subTest(command=" ".join(leaf)):
                done = subprocess.run([VORNCTL, "--complete", *leaf, "-"], capture_output=True, text=True, check=True)
                self.assertEqual(set(done.stdout.split()) - {"--help"}, {f"--{o}" for o in options_of_help(leaf)})

    def test_the_completion_offers_every_value_that_the_help_names(self):
        done = subprocess.run([VORNCTL, "--complete", "setting", "set", "--type", ""], capture_output=True, text=True, check=True)
        said = re.search(r"--type TYPE\s+([a-z, ]+);", help_of("setting", "set")).group(1)
        self.assertEqual(done.stdout.split(), re.split(", | or ", said))

    def test_it_names_the_fields_that_each_list_can_show(self):
        for leaf in (["profile", "list"], ["profile", "show"], ["setting", "list"], ["feature", "list"], ["operator", "search"], ["device", "list"]):
            words = [VORNCTL, "--complete", *leaf, "--fields="]
            done = subprocess.run(words, capture_output=True, text=True, check=True)
            offered = [line.split("=")[1] for line in done.stdout.split()]
            self.assertGreater(len(offered), 2)
            for field in offered:
                with self.subTest(command=" ".join(leaf), field=field):
                    self.assertTrue(re.search(rf"(?m)^\.(It )?Cm ([\w-]+ , )*{field}\b", self.source))

    def part_of_synopsis(self, leaf):
        words = " ".join(leaf)
        return re.search(rf"^\.Cm {words}\n((?:\.(?!Nm).*\n)*)", self.synopsis(), re.MULTILINE).group(1)

    def options_of_synopsis(self, leaf):
        """The options of a command with the names of their values, "" for none."""
        part = self.part_of_synopsis(leaf)
        options = re.findall(r"Fl -([a-z-]+)(?: Ar (\w+))?", part)
        if "Ar password-option" in part:
            names = self.source.split(".Ss Passwords")[1].split("Fl -show-secrets")[0]
            options += re.findall(r"Fl -((?:csd-)?password(?:-file)?)(?: Ar (\w+))?", names)
        return dict(options)

    def test_it_names_every_field(self):
        fields = help_of("profile", "set").split("Fields:\n")[1]
        for field in re.findall(r"^  ([a-z0-9-]+) ", fields, re.MULTILINE):
            with self.subTest(field=field):
                self.assertTrue(re.search(rf"(?m)^\.It Cm ([\w-]+ , )?{field}\b", self.source))

    def test_its_exit_statuses_are_those_of_the_help(self):
        said = re.findall(r"^ +(\d+)  (.+)$", help_of().split("Exit status:\n")[1], re.MULTILINE)
        page = self.source.split(".Sh EXIT STATUS")[1]
        self.assertEqual(re.findall(r"^\.It (\d+)\n(.+)$", page, re.MULTILINE), said)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
