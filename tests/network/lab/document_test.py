#!/usr/bin/env python3
"""docs/linux-phone.md does what it says: its commands are typed word for word.

Usage, in a laboratory with a modem: document_test.py VORNCTL [-- unittest arguments]. Where VORN_RENEW is 1 the
transcript in the document is written anew.
"""

import json
import os
import pathlib
import re
import subprocess

import programs

DOCUMENT = programs.HERE.parents[2] / "docs/linux-phone.md"
TEXT = DOCUMENT.read_text(encoding="utf-8")

# What a reader puts in the place of a word.
READER = {"WORDS": "laboratory", "NAME": "Internet", "apn=...": "apn=internet.example", "user=...": "user=ursula",
          "--pin=PIN": "--pin=1234"}

# Commands that are for another machine than a laboratory: packages, the units of systemd, its journal, WiFi.
ELSEWHERE = ("sudo ", "journalctl ", "nmcli device disconnect wlan0")


def blocks(language):
    return re.findall(rf"^```{language}\n(.*?)^```", TEXT, re.MULTILINE | re.DOTALL)


def as_typed(line):
    for word, typed in READER.items():
        line = line.replace(word, typed)
    return " ".join(line.partition(" #")[0].split())


class Document(programs.Programs):
    def setUp(self):
        super().setUp()
        self.environment["HOME"] = self.folder
        os.mkdir(self.folder + "/bin")
        os.symlink(self.vornctl, self.folder + "/bin/vornctl")
        self.environment["PATH"] = self.folder + "/bin:" + self.environment["PATH"]

    def type(self, line, text="horse\n"):
        return subprocess.run(["sh", "-c", line], env=self.environment, input=text, text=True, timeout=60,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT, check=False)

    def test_the_configuration_that_it_writes_chooses_networkmanager(self):
        del self.environment["VORN_ROOT"]
        script, = [block for block in blocks("sh") if "network.json" in block]
        self.assertEqual(self.type("set -e\n" + script).returncode, 0)
        written = pathlib.Path(self.folder, ".local/share/vorn/etc/network.json")
        self.assertEqual(json.loads(written.read_text(encoding="utf-8")), {"bearer": "networkmanager"})
        self.assertEqual(self.type("vornctl doctor --json").stdout, "[]\n")

    def test_the_first_connection_comes_up(self):
        script, = [block for block in blocks("sh") if "--operator" in block]
        for line in map(as_typed, script.splitlines()):
            if "profile create" in line:
                line += " --plan contract"
            done = self.type(line.replace(" --hold", ""))
            self.assertEqual(done.returncode, 0, line + "\n" + done.stdout)
        self.assertIn("10.99.0.2", done.stdout)

    def test_a_plan_that_is_left_open_is_asked_for_with_what_to_type(self):
        asked = self.type("vornctl profile create Internet --operator laboratory")
        self.assertEqual(asked.returncode, 2)
        option = re.search(r"^ *(--plan \S+)", asked.stdout, re.MULTILINE).group(1)
        self.assertEqual(self.type("vornctl profile create Internet --operator laboratory " + option).returncode, 0)

    def test_each_command_in_its_text_is_one(self):
        words = re.sub(r"^```.*?^```", "", TEXT, flags=re.MULTILINE | re.DOTALL)
        commands = [as_typed(line) for line in re.findall(r"`((?:sudo |journalctl |vornctl |mmcli |nmcli )[^`]+)`", words)]
        self.assertGreater(len(commands), 8)
        for line in commands:
            if line.startswith(ELSEWHERE):
                continue
            with self.subTest(line=line):
                self.ctl("profile", "list")
                if "profile create" in line:
                    self.type("vornctl profile delete Internet")
                    line += " --plan contract" if "--from-sim" in line else ""
                else:
                    self.type("vornctl profile create Internet apn=internet.example")
                if line in ("vornctl link open", "vornctl operator search"):
                    line += " Internet" if "link" in line else " laboratory"
                done = self.type(line)
                self.assertTrue(done.returncode == 0 or self.was_refused_by_the_modem(done.stdout),
                                line + "\n" + done.stdout)

    def was_refused_by_the_modem(self, text):
        """A modem may not know the order, or be in a state without need for it; mmcli understands it."""
        return "org.freedesktop.ModemManager1.Error.Core." in text

    def test_its_transcript_is_what_a_terminal_shows(self):
        old, = blocks("console")
        shown = ""
        for line in [line for line in old.splitlines() if line.startswith("$ ")]:
            shown += line + "\n" + self.type(line[2:]).stdout
        if os.environ.get("VORN_RENEW") == "1":
            DOCUMENT.write_text(TEXT.replace(old, shown), encoding="utf-8")
        else:
            self.assertEqual(shown, old)


if __name__ == "__main__":
    programs.main()
