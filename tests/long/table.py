#!/usr/bin/env python3
"""Puts what the long runs have found into the tables of docs/proof.md, with the machine, the versions and the date.

Usage: tests/long/table.py [FOLDER DOCUMENT]   (default: build/long and docs/proof.md of this checkout)

A table stands between the lines "<!-- NAME -->" and "<!-- /NAME -->" of the document and is that of NAME.txt; the table
"machine" says on what it was. A run that was not made keeps its table.
"""

import datetime
import pathlib
import platform
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]


def output(*command):
    return subprocess.run(command, capture_output=True, text=True, check=False).stdout.strip()


def processor():
    names = re.findall(r"^model name\s*: (.*)$", pathlib.Path("/proc/cpuinfo").read_text(encoding="utf-8"), re.M)
    return f"{len(names)} x {names[0]}" if names else platform.machine()


def machine():
    system = re.search(r'^PRETTY_NAME="(.*)"$', pathlib.Path("/etc/os-release").read_text(encoding="utf-8"), re.M)
    return [("date", datetime.date.today().isoformat()),
            ("processor", processor()),
            ("system", f"{system.group(1) if system else platform.system()}, Linux {platform.release()}"),
            ("compilers", ", ".join(filter(None, (output(name, "--version").split("\n")[0] for name in ("g++", "clang++"))))),
            ("Qt", output("qmake6", "-query", "QT_VERSION") or output("pkg-config", "--modversion", "Qt6Core"))]


def table(rows):
    return "\n".join(["| what | figure |", "|---|---|", *(f"| {what} | {figure} |" for what, figure in rows)])


def tables_in(folder):
    for path in sorted(folder.glob("*.txt")):
        rows = [line.split("\t") for line in path.read_text(encoding="utf-8").splitlines()]
        if rows:
            yield path.stem, table(rows)


def renewed(document, name, text):
    """The document with the table of this name; as it is where it has no place for one."""
    begin, end = f"<!-- {name} -->\n", f"\n<!-- /{name} -->"
    if begin not in document or end not in document:
        return document
    head, rest = document.split(begin, 1)
    return head + begin + text + end + rest.split(end, 1)[1]


def main(folder, path):
    document = path.read_text(encoding="utf-8")
    found = list(tables_in(folder))
    for name, text in [*found, ("machine", table(machine()))] if found else []:
        document = renewed(document, name, text)
        print(f"\n{name}\n{text}")
    path.write_text(document, encoding="utf-8")


if __name__ == "__main__":
    if len(sys.argv) not in (1, 3):
        sys.exit(__doc__)
    main(*map(pathlib.Path, sys.argv[1:] or (ROOT / "build/long", ROOT / "docs/proof.md")))
