"""What docs/translating.md tells a translator to do leads to a catalogue that the tests take, or refuse with the reason.

Usage: translating_test.py TREE
"""
import json
import re
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

TREE = Path(sys.argv.pop(1))
PAGE = (TREE / "docs/translating.md").read_text(encoding="utf-8")
SOURCES = ("include", "session", "profiles", "wizard", "widgets", "platform/host/toolkit", "tests/toolkit")
NEW = "platform/host/toolkit/texts/it.json"


class Page(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="translating-")
        self.addCleanup(folder.cleanup)
        self.tree = Path(folder.name)
        for source in SOURCES:
            shutil.copytree(TREE / source, self.tree / source, ignore=shutil.ignore_patterns("*.png"))

    def follow_the_first_command(self):
        command = re.search(r"^    (cp .*)$", PAGE, re.MULTILINE).group(1)
        subprocess.run(command, shell=True, cwd=self.tree, check=True)

    def judge(self):
        return subprocess.run([sys.executable, "-B", self.tree / "tests/toolkit/catalogues_test.py", self.tree, "toolkit"],
                              capture_output=True, text=True, check=False)

    def change(self, changed):
        path = self.tree / NEW
        texts = json.loads(path.read_text(encoding="utf-8"))
        changed(texts)
        path.write_text(json.dumps(texts, ensure_ascii=False), encoding="utf-8")

    def test_a_copied_catalogue_is_whole(self):
        self.follow_the_first_command()
        done = self.judge()
        self.assertEqual(done.returncode, 0, done.stderr)

    def test_a_text_that_is_missing_is_told(self):
        self.follow_the_first_command()
        self.change(lambda texts: texts.pop("TXT_RID_SOFTKEY_SAVE"))
        done = self.judge()
        self.assertNotEqual(done.returncode, 0)
        self.assertIn("TXT_RID_SOFTKEY_SAVE", done.stderr)
        self.assertIn("it", done.stderr)

    def test_a_place_marker_that_is_lost_is_told(self):
        self.follow_the_first_command()
        name = "FMT_RID_INSTRUCTIONALTXT_YOU_HAVE_SUCCESSFULLY_SAVED_THE_PROFILE_NAMED"
        self.change(lambda texts: texts.update({name: "Il profilo è stato salvato."}))
        done = self.judge()
        self.assertNotEqual(done.returncode, 0)
        self.assertIn(name, done.stderr)

    def test_what_the_page_names_is_there(self):
        for path in re.findall(r"`((?:platform|tests|apps)/[\w./]+)`", PAGE):
            self.assertTrue((TREE / path).exists(), path)
        variables = (TREE / "platform/host/base/look_variables.cpp").read_text(encoding="utf-8")
        self.assertIn("isLanguage(", variables)
        sources = "".join(path.read_text(encoding="utf-8") for path in (TREE / "tests/toolkit").rglob("*.cpp"))
        self.assertIn("EachLanguageIsCalledAsItsSpeakersDo", sources)


if __name__ == "__main__":
    unittest.main()
