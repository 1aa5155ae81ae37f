"""Checks that every link of a Markdown document leads to a file. Usage: links.py DOCUMENTS...

Links within a document and to other machines are left alone.
"""

import pathlib
import re
import sys

LINK = re.compile(r"\]\(([^)\s]+)[^)]*\)|(?:src|href)=\"([^\"]+)\"")


def dead_links(document):
    text = re.sub(r"^```.*?^```", "", document.read_text(encoding="utf-8"), flags=re.DOTALL | re.MULTILINE)
    for match in LINK.finditer(text):
        target = (match.group(1) or match.group(2)).split("#")[0]
        if target and "://" not in target and not (document.parent / target).exists():
            yield f"{document}: {target} is not there"


def main(*documents):
    if not documents:
        sys.exit("usage: links.py DOCUMENTS...")
    found = [link for document in documents for link in dead_links(pathlib.Path(document))]
    print("\n".join(found) or f"every link of {len(documents)} documents leads somewhere")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
