"""Every installed file is in one Debian package. Usage: files_test.py PREFIX

PREFIX is an installation of a build (cmake --install), which stands for /usr.
"""

import pathlib
import re
import sys
import unittest

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
PREFIX = pathlib.Path(sys.argv.pop(1)).resolve()


def patterns():
    """(package, pattern below the prefix) of each line of debian/*.install that CMake installs."""
    for listing in sorted(ROOT.glob("debian/*.install")):
        for line in listing.read_text(encoding="utf-8").splitlines():
            if line.startswith("debian/"):
                continue
            # Where packages have a folder for each architecture, a prefix has none.
            yield listing.stem, re.sub(r"^lib/(x86_64-linux-gnu/)?(\*/)?", "lib/", line.split()[0].removeprefix("usr/"))


def matches(pattern):
    """The files of the installation that a pattern takes, whole folders with all that they have."""
    for path in PREFIX.glob(pattern):
        yield from ((path,) if not path.is_dir() else (below for below in path.rglob("*") if not below.is_dir()))


class Packages(unittest.TestCase):
    def test_each_installed_file_is_in_exactly_one_package(self):
        packages = {path: [] for path in PREFIX.rglob("*") if not path.is_dir()}
        for package, pattern in patterns():
            for path in matches(pattern):
                packages[path].append(package)
        wrong = {str(path.relative_to(PREFIX)): owners for path, owners in packages.items() if len(owners) != 1}
        self.assertEqual(wrong, {})

    def test_each_line_of_a_list_takes_a_file(self):
        empty = [f"{package}: {pattern}" for package, pattern in patterns() if not any(matches(pattern))]
        self.assertEqual(empty, [])

    def test_each_list_belongs_to_a_package(self):
        control = (ROOT / "debian/control").read_text(encoding="utf-8")
        packages = set(re.findall(r"^Package: (\S+)$", control, re.MULTILINE))
        named = {path.stem for pattern in ("*.install", "*.symbols") for path in ROOT.glob(f"debian/{pattern}")}
        self.assertLessEqual(named, packages)


if __name__ == "__main__":
    unittest.main()
