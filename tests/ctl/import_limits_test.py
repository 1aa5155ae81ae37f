"""A hostile file costs neither memory nor patience. Usage: import_limits_test.py VORNCTL"""

import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

import shell

VORNCTL = sys.argv[1]
SIZE = 2_000_000
# The sanitizer's own memory comes on top.
TIMES = 60 if b"__asan_init" in pathlib.Path(VORNCTL).read_bytes() else 20


def repeated(value, separator=","):
    return separator.join([value] * (SIZE // (len(value) + 1)))


def in_profiles(values):
    return f'{{"format": "vorn-profiles", "version": 1, "profiles": [{values}]}}'


def numbered(pattern, count):
    return ",".join(pattern.format(i) for i in range(count))


HOSTILE = {
    "numbers": in_profiles(repeated("0")),
    "empty objects": in_profiles(repeated("{}")),
    "empty arrays": in_profiles(repeated("[[]]")),
    "profiles": in_profiles(numbered('{{"name": "{}", "fields": {{"a": 0}}}}', SIZE // 40)),
    "one key again and again": "{" + repeated('"a":0') + "}",
    "many unknown keys": "{" + numbered('"{:x}":0', SIZE // 9) + "}",
    "deep numbers": "[" * 90 + repeated("0") + "]" * 90,
    "empty lines": "\n" * SIZE,
    "a long key with much in it": '{"' + "k" * (SIZE // 2) + '":{' + repeated('"a":0')[: SIZE // 2 - 5] + "}}",
    "escapes": '{"x": "' + "\\u0001" * (SIZE // 6) + '"}',
    "wrong values": in_profiles(
        numbered('{{"name": "{}", "fields": {{"qos": 1, "dns1": 1, "dns2": 1, "port1": "", "apn": []}}}}', 500)
    ),
}


class ImportLimits(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="vornctl-")
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.env = shell.environment(self.folder, VORNCTL, self.folder / "root")

    def memory_of(self, text):
        """What an import has told, and its largest memory in bytes."""
        path = self.folder / "file"
        path.write_text(text)
        with open(self.folder / "told", "wb") as told:
            child = subprocess.Popen([VORNCTL, "profile", "import", path], env=self.env, stderr=told)
            _, status, usage = os.wait4(child.pid, 0)
            child.returncode = os.waitstatus_to_exitcode(status)
        return child.returncode, (self.folder / "told").read_text(errors="replace"), usage.ru_maxrss * 1024

    def test_memory_stays_within_twenty_times_the_file(self):
        least = self.memory_of("[]")[2]
        for name, text in HOSTILE.items():
            with self.subTest(name):
                status, told, most = self.memory_of(text)
                self.assertEqual(status, 15)
                self.assertLess(most - least, TIMES * max(len(text), 500_000))
                self.assertLess(len(told), 100_000)

    def test_what_is_left_out_of_the_messages_is_counted(self):
        told = self.memory_of("{" + ",".join(['"a":0'] * 1000) + "}")[1].splitlines()
        self.assertEqual(len(told), 103)
        self.assertEqual(told[-2:], ["  and 903 more that are left out here", "  Nothing was imported."])
        told = self.memory_of(HOSTILE["wrong values"])[1].splitlines()
        self.assertEqual(len(told), 103)
        self.assertEqual(told[-2], "  and 2400 more that are left out here")

    def test_more_profiles_than_are_kept_are_one_problem(self):
        told = self.memory_of(in_profiles(numbered('{{"name": "{}", "fields": {{}}}}', 70000)))[1]
        self.assertRegex(told, r"(?m)^  .*file:1: profiles: expected at most \d+ profiles, found 70000$")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
