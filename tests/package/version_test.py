"""Whatever tells the version tells the same one."""

import pathlib
import re
import subprocess
import unittest
import xml.etree.ElementTree

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent


def first(path, pattern):
    found = re.search(pattern, (ROOT / path).read_text(encoding="utf-8"), re.MULTILINE)
    return found.group(1) if found else None


def git(*arguments):
    done = subprocess.run(["git", "-C", ROOT, *arguments], capture_output=True, text=True, check=False)
    return done.stdout.split() if done.returncode == 0 else []


class Version(unittest.TestCase):
    def setUp(self):
        self.version = first("include/vornqtnapi_version.h", r'VORNQTNAPI_VERSION_STR "(\d+\.\d+\.\d+)"')

    def test_the_number_of_the_header_is_that_of_its_text(self):
        number = first("include/vornqtnapi_version.h", r"VORNQTNAPI_VERSION VORNQTNAPI_VERSION_CHECK\((.*)\)")
        self.assertEqual(number.replace(", ", "."), self.version)

    def test_the_changelog_begins_with_it(self):
        self.assertEqual(first("CHANGELOG.md", r"^## (.*)$"), self.version)

    def test_the_packages_have_it(self):
        self.assertEqual(first("debian/changelog", r"^vornqtnapi \((.*?)\)"), self.version)

    def test_a_tag_of_this_commit_names_it(self):
        # A copy of the tree without its history has no tag, either.
        for tag in git("tag", "--points-at", "HEAD"):
            self.assertEqual(tag, f"v{self.version}")

    def test_what_a_software_centre_shows_has_it(self):
        for path in ROOT.glob("apps/**/*.metainfo.xml"):
            release = xml.etree.ElementTree.parse(path).find("releases/release")
            self.assertEqual(release.get("version"), self.version, path)


if __name__ == "__main__":
    unittest.main()
