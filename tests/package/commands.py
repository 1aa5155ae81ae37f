"""The commands of the documents: the blocks that begin with ```sh, and what is said about them."""

import re

BLOCK = re.compile(r"^```(\w+)?([^\n]*)\n(.*?)^```$", re.DOTALL | re.MULTILINE)


def blocks(text):
    """(language, words behind it, text) of each fenced block of a document."""
    for match in BLOCK.finditer(text):
        yield match.group(1) or "", match.group(2).split(), match.group(3)


def commands(text):
    """Each command line of a document's sh blocks, without what is said behind it."""
    for language, words, body in blocks(text):
        if language != "sh" or "apart" in words:
            continue
        for line in body.replace("\\\n", " ").splitlines():
            command = re.sub(r"(^|\s)#.*", "", line).strip()
            if command:
                yield re.sub(r"\s+", " ", command)


def steps(text):
    """A document as a sequence of what a reader does: ("write", name, text), ("run", script, expected output or None).

    A block of sh is run; one of text shows what the block before it prints; one with file=NAME is that file. After "quiet"
    what is printed is of no matter, "apart" is run by another test. Where no text follows, nothing may be printed.
    """
    found = []
    for language, words, body in blocks(text):
        name = next((word.removeprefix("file=") for word in words if word.startswith("file=")), None)
        if name:
            found.append(["write", name, body])
        elif language == "sh" and "apart" not in words:
            found.append(["run", body, None if "quiet" in words else ""])
        elif language == "text" and found and found[-1][0] == "run":
            found[-1][2] = body
    return found
