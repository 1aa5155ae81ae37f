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

    def test_it_names_every_option(self):
        for leaf in self.leaves():
            for option in re.findall(r"^  (?:-\w,)?--([a-z-]+)", help_of(*leaf), re.MULTILINE):
                if option != "help":
                    with self.subTest(command=" ".join(leaf), option=option):
                        self.assertTrue(f"Fl -{option}" in self.source)

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
