"""Checks that each path of the tree that a document names is there. Usage: paths.py ROOT DOCUMENTS...

A path is a word between backticks that begins with a folder of the tree's root, or with a file there; what
follows a blank is taken for arguments. Names in capitals and stars stand for something else, and build/ for
what is only built.
"""

import pathlib
import re
import sys

QUOTED = re.compile(r"`([^`\n]+)`")


def paths_in(text, root):
    """Each path of the tree that a text names, but for patterns."""
    first = {entry.name for entry in root.iterdir()} - {"build", ".git"}
    for quoted in QUOTED.findall(re.sub(r"^```.*?^```", "", text, flags=re.DOTALL | re.MULTILINE)):
        word = quoted.split(" ")[0].removeprefix("./")
        if word.split("/")[0] in first and not re.search(r"[*<>]|/[A-Z]+([/.]|$)", word):
            yield word


def dead_paths(document, root):
    text = document.read_text(encoding="utf-8")
    for path in paths_in(text, root):
        if not (root / path).exists():
            yield f"{document}: {path} is not there"


def main(root, *documents):
    folder = pathlib.Path(root)
    found = [path for document in documents for path in dead_paths(pathlib.Path(document), folder)]
    print("\n".join(found) or f"every path in {len(documents)} documents is there")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
