"""Checks that functions, sources and folders stay small, and that the members of classes are named in one way.

Usage: shape.py ROOT. Needs Universal Ctags, which knows where a function ends and who may reach a member.
"""

import json
import pathlib
import subprocess
import sys

LIBRARY = ("include", "profiles", "session", "support", "widgets", "wizard")
HOST = ("apps", "bench", "examples", "platform")

# One function in a hundred may be longer, and a source of the tests.
LONGEST_USUAL = 24
LONGEST_FUNCTION = 85
LONGEST_SOURCE = {"the library": 299, "the host": 399}

# A unit is a class or whatever else has a header, a source, or one of each.
MOST_UNITS = 20

# One header for each class, as the phone has them; applications name them without a folder.
FLAT = {"platform/include"}

# Functions that are a table of cases and nothing else.
TABLES = {"nameOf", "otherDigits", "plainNumbers", "signsAndBlanks"}

# Headers whose private members have the names that applications were compiled with, and what stands in for Qt 2.3.
GIVEN = ("include/", "platform/include/", "platform/host/toolkit/qt2/", "tests/guard/")


def part_of(path):
    first = path.split("/")[0]
    return "the library" if first in LIBRARY else "the host" if first in HOST else "the tests"


def sources_below(root):
    for folder in (*LIBRARY, *HOST, "tests"):
        for path in sorted((root / folder).rglob("*")):
            if path.suffix in (".cpp", ".h") and not path.is_relative_to(root / "tests/guard"):
                yield path.relative_to(root).as_posix()


def tags_of(root, paths):
    """The functions and members of the sources, as ctags tells them."""
    command = ["ctags", "--options=NONE", "--languages=C++", "--langmap=C++:.cpp.h", "--c++-kinds=fm", "--fields=+neaK",
               "--output-format=json", "-o", "-", "-L", "-"]
    told = subprocess.run(command, cwd=root, input="\n".join(paths), capture_output=True, text=True, check=True)
    return [json.loads(line) for line in told.stdout.splitlines()]


def too_long(tags):
    """The functions that make more than one in a hundred of a part too long, and each that is far too long."""
    lengths = {}
    for tag in tags:
        if tag["kind"] == "function" and "end" in tag and tag["name"] not in TABLES:
            lines = tag["end"] - tag["line"] + 1
            lengths.setdefault(part_of(tag["path"]), []).append((lines, f"{tag['path']}:{tag['line']}: {tag['name']}"))
    for part, functions in lengths.items():
        usual = sorted(functions)[-1 - len(functions) // 100][0]
        for lines, place in sorted(functions, reverse=True):
            if lines > LONGEST_FUNCTION:
                yield f"{place}: {lines} lines; none has more than {LONGEST_FUNCTION}"
            elif usual > LONGEST_USUAL and lines >= usual:
                yield (f"{place}: {lines} lines; of a hundred functions of {part}, 99 have at most {LONGEST_USUAL}, "
                       "so split this one or another of these")


def too_large(root, paths):
    for path in paths:
        lines = (root / path).read_text(encoding="utf-8").count("\n")
        most = LONGEST_SOURCE.get(part_of(path))
        if most and lines > most:
            yield f"{path}: {lines} lines; a source of {part_of(path)} has at most {most}"


def too_full(paths):
    units = {}
    for path in map(pathlib.PurePosixPath, paths):
        units.setdefault(path.parent.as_posix(), set()).add(path.stem)
    for folder, names in units.items():
        if len(names) > MOST_UNITS and folder not in FLAT:
            yield f"{folder}: {len(names)} units stand side by side; with more than {MOST_UNITS} a folder needs rooms"


def misnamed(root, tags):
    for tag in tags:
        path, name = tag["path"], tag["name"]
        if tag["kind"] != "member" or path.startswith(GIVEN):
            continue
        line = (root / path).read_text(encoding="utf-8").splitlines()[tag["line"] - 1].strip()
        own = tag.get("access") == "private" and not line.startswith("static ")
        if own != name.startswith("m_"):
            wanted = f"m_{name}" if own else name.removeprefix("m_")
            yield f"{path}:{tag['line']}: {name}: private data members are m_name, all others name: {wanted}"


def faults_of(root):
    paths = list(sources_below(root))
    tags = tags_of(root, paths)
    return [*too_long(tags), *too_large(root, paths), *too_full(paths), *misnamed(root, tags)]


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit("usage: shape.py ROOT")
    found = faults_of(pathlib.Path(sys.argv[1]).resolve())
    print("\n".join(found) or "small, and named in one way")
    sys.exit(1 if found else 0)
