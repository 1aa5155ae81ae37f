"""Checks what clang-format does not: one way to write what can be written in several.

Usage: dialect.py [--mend] ROOT. Prints each place that is written otherwise; with --mend it is rewritten
where a script can.
"""

import pathlib
import re
import sys

FOLDERS = ("apps", "bench", "examples", "include", "platform", "profiles", "session", "support", "tests", "widgets", "wizard")

# Comparisons of what came with what was expected, in this order.
COMPARISON = re.compile(r"\b(?:EXPECT|ASSERT)_(?:EQ|NE|STREQ|STRNE)\(")

# What can only be an expectation: a number, a text, a constant of the network API, a truth value.
LITERAL = re.compile(r"""-?\d[\w.']*$|(?:u8|u|L)?"(?:[^"\\]|\\.)*"(?:\s*"(?:[^"\\]|\\.)*")*$|'[^']*'$"""
                     r"""|NAPI_[A-Z_]+$|true$|false$|nullptr$""")

# The types of a fixed size, as the headers for the phone write them.
QUALIFIED = re.compile(r"\bstd::(?=u?int(?:8|16|32|64)_t\b)")

# The type of a size, as most sources write it.
BARE_SIZE = re.compile(r"(?<![\w:])(?=size_t\b)")

# A constant is named as a variable is; those of Google Benchmark have names of their own.
PREFIXED = re.compile(r"(?<![\w\"])(?<!benchmark::)k[A-Z][a-z]\w*")

# What one source has for itself stands in an unnamed namespace, but for what is found beside its type only.
STATIC = re.compile(r"^static (?![^;{=]*\b(?:PrintTo|operator *[^\w\s(]+)\()", re.MULTILINE)

# Declarations as Qt 2.3 has them, and samples of what is refused: written as others write.
OTHERS = "tests/guard"


def arguments_at(text, begin):
    """The places (begin, end) of the arguments of a call whose first argument begins here; None if none end."""
    places, depth, quote, at = [begin], 0, None, begin
    while at < len(text):
        char = text[at]
        if quote:
            at += char == "\\"
            quote = None if char == quote else quote
        elif char == '"' or (char == "'" and not text[at - 1].isdigit()):
            quote = char
        elif char in "([{":
            depth += 1
        elif char in ")]}":
            if depth == 0:
                ends = places[1:] + [at + 1]
                return [(one, end - 1) for one, end in zip(places, ends)]
            depth -= 1
        elif char == "," and depth == 0:
            places.append(at + 1)
        at += 1
    return None


def turned_comparisons(text):
    """The places of the two arguments of each comparison that has its expectation first."""
    for match in COMPARISON.finditer(text):
        places = arguments_at(text, match.end())
        # A comma between the arguments of a template makes more than two.
        if not places or len(places) != 2:
            continue
        first, second = (text[slice(*place)].strip() for place in places)
        if LITERAL.match(first) and not LITERAL.match(second):
            yield match.start(), places, f"{second}, {first}"


def mended(text):
    # One may stand inside another, so each is looked for anew; the last one has none behind it.
    while turned := list(turned_comparisons(text)):
        _, places, pair = turned[-1]
        text = text[:places[0][0]] + pair + text[places[1][1]:]
    return BARE_SIZE.sub("std::", QUALIFIED.sub("", text))


def faults_of(text):
    for begin, _, turned in turned_comparisons(text):
        yield text.count("\n", 0, begin) + 1, f"what came stands first: ({turned})"
    for match in QUALIFIED.finditer(text):
        yield text.count("\n", 0, match.start()) + 1, "types of a fixed size stand without std::"
    for match in BARE_SIZE.finditer(text):
        yield text.count("\n", 0, match.start()) + 1, "it is std::size_t"
    for match in PREFIXED.finditer(text):
        yield text.count("\n", 0, match.start()) + 1, f"a constant is named as a variable is: {match.group()}"


def static_faults_of(text):
    for match in STATIC.finditer(text):
        yield text.count("\n", 0, match.start()) + 1, "what one source has for itself stands in an unnamed namespace"


def main(*arguments):
    mend = "--mend" in arguments
    root = pathlib.Path(arguments[-1])
    found = []
    for folder in FOLDERS:
        for path in sorted((root / folder).rglob("*")):
            if path.suffix not in (".cpp", ".h"):
                continue
            text = path.read_text(encoding="utf-8")
            if mend and mended(text) != text:
                path.write_text(mended(text), encoding="utf-8")
            elif not mend:
                place = path.relative_to(root).as_posix()
                faults = list(faults_of(text))
                if path.suffix == ".cpp" and not place.startswith(OTHERS):
                    faults += static_faults_of(text)
                found += [f"{place}:{line}: {fault}" for line, fault in faults]
    print("\n".join(found) or "one dialect")
    return 1 if found else 0


if __name__ == "__main__":
    if len(sys.argv) not in (2, 3):
        sys.exit("usage: dialect.py [--mend] ROOT")
    sys.exit(main(*sys.argv[1:]))
