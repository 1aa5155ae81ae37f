"""The bill of materials of a build, and the reasons for what is in it. Usage: supply_test.py BUILD"""

import json
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
BUILD = pathlib.Path(sys.argv.pop(1)).resolve()
sys.path.insert(0, str(ROOT / "packaging"))
import supply


class Supply(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.folder = pathlib.Path(folder.name)
        cls.done = subprocess.run([sys.executable, "-B", ROOT / "packaging/supply.py", BUILD, cls.folder],
                                  capture_output=True, text=True, check=False)
        cls.bill = json.loads((cls.folder / "bom.spdx.json").read_text(encoding="utf-8"))

    def test_every_dependency_has_a_reason_and_a_licence(self):
        self.assertEqual((self.done.returncode, self.done.stderr), (0, ""))

    def test_what_is_linked_is_in_the_bill(self):
        packages = {package["name"]: package for package in self.bill["packages"]}
        for name in ("libqt6widgets6", "libc6", "nlohmann-json3-dev", "libcli11-dev", "libpugixml-dev"):
            self.assertRegex(packages[name]["versionInfo"], r"^\d")
        for test_only in ("libgtest-dev", "libbenchmark-dev"):
            self.assertNotIn(test_only, packages)

    def test_what_is_installed_is_in_the_bill(self):
        names = {entry["fileName"].rsplit("/", 1)[-1] for entry in self.bill["files"]}
        self.assertLessEqual({"vornctl", "libvornqtnapi.so.1.0.0", "libnapi.so.1.0.0"}, names)

    def test_each_relation_is_between_two_that_are_there(self):
        known = {entry["SPDXID"] for part in ("packages", "files") for entry in self.bill[part]} | {"SPDXRef-DOCUMENT"}
        for relation in self.bill["relationships"]:
            self.assertLessEqual({relation["spdxElementId"], relation["relatedSpdxElement"]}, known)

    def test_the_licences_are_those_of_every_package(self):
        text = (self.folder / "LICENCES.txt").read_text(encoding="utf-8")
        for package in self.bill["packages"][1:]:
            self.assertRegex(text, rf"(?m)^(.*, )?{re.escape(package['name'])}(, .*)?$")

    def test_a_dependency_without_a_reason_is_told(self):
        self.assertNotIn("libzstd1", supply.told(ROOT))
        self.assertEqual(supply.told(ROOT)["libcli11-dev"], "compiled in")


class List(unittest.TestCase):
    def test_every_package_that_is_installed_for_the_project_has_a_reason(self):
        text = (ROOT / "docs/dependencies.md").read_text(encoding="utf-8")
        named = set(re.findall(r"`([a-z0-9.+-]+)`", text))
        asked = set()
        for line in (ROOT / "tools/packages.txt").read_text(encoding="utf-8").splitlines():
            if not line.startswith("#"):
                asked |= set(line.split(": ", 1)[1].split())
        self.assertEqual(asked - named, set())


if __name__ == "__main__":
    unittest.main()
