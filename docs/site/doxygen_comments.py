"""Gives Doxygen a header with the comments that it looks for. Usage: doxygen_comments.py HEADER

The headers have plain // comments. One that stands right above a declaration is about it, and about those that
follow without a blank line between them; one behind a declaration is about that; the first of a file, and any with a
blank line below it, is about the file. Doxygen wants three slashes, and its mark for the file. What a widget takes over
from Qt without a word of its own does what Qt says, and is left out; so are the bytes of a record that nobody names.
"""

import re
import sys

COMMENT = re.compile(r"(\s*)//(?!/)(.*)")
BEHIND = re.compile(r"(\s*[^\s}/#].*?)\s+// (.*)")
DECLARED = re.compile(r"\s*(?!#|\}|public|protected|private|signals|Q_|friend|extern|struct|class|enum|typedef)[\w~].*[;,]?$")
LEFT_OUT = re.compile(r"\s*uint8_t kept.*;|[^/]*\b(?:\w+Event|event|eventFilter|sizeHint|minimumSizeHint|heightForWidth|"
                      r"focusNextPrevChild|setEnabled|~\w+)\([^()]*\)[ \w]*;")


def blocks(lines):
    """(comment lines, False) and (other line, True) in turn."""
    comment = []
    for line in lines:
        match = COMMENT.fullmatch(line)
        if match:
            comment.append(match.groups())
            continue
        if comment:
            yield comment, False
            comment = []
        yield line, True
    if comment:
        yield comment, False


def marked(comment, about_file):
    indent = comment[0][0]
    first = [f"{indent}/// @file"] if about_file else []
    return first + [f"{indent}///{text}" for _, text in comment]


def converted(text):
    """The header with Doxygen's marks."""
    parts = list(blocks(text.splitlines()))
    result, shared = [], None
    for index, (part, is_code) in enumerate(parts):
        if not is_code:
            below = parts[index + 1][0] if index + 1 < len(parts) else ""
            about_file = index == 0 or not below.strip()
            result += marked(part, about_file)
            shared = None if about_file else part
            continue
        behind = BEHIND.fullmatch(part)
        statement_before = bool(result) and result[-1].split("///<")[0].rstrip().endswith(";")
        if shared and statement_before and DECLARED.match(part) and not LEFT_OUT.fullmatch(part):
            result += marked(shared, False)
        if not part.strip():
            shared = None
        if LEFT_OUT.fullmatch(part) and not result[-1].lstrip().startswith("///"):
            continue
        result.append(f"{behind.group(1)} ///< {behind.group(2)}" if behind and "://" not in part else part)
    return "\n".join(result) + "\n"


if __name__ == "__main__":
    with open(sys.argv[1], encoding="utf-8") as header:
        sys.stdout.write(converted(header.read()))
