"""Checks that docs/phone-build.md names all that the library takes from the phone's platform, and no more.

Usage: sdk_names.py ROOT. Each header of platform/include/ that the library includes, directly or through
another of them, has a section "### `header.h`" there, and each class, function, field and constant that
the header declares and the library uses is named in it in backticks. A name that a class of Qt has as well
says nothing: it may be Qt's that is used; phone_build_test.py looks at what the linker is asked for. What
the library does not use is not named, so that nobody provides it for nothing. The section "### Numbers"
gives each of its constants the value that it has in platform/include/.
"""

import pathlib
import re
import sys

from class_reader import classes_of, tokens_of

HERE = pathlib.Path(__file__).resolve().parent
LIBRARY = ("include", "support", "widgets", "wizard", "profiles", "session")
DOCUMENT = "docs/phone-build.md"
# The library's own names for the platform's numbers: a header, and the namespace that they are in.
NUMBERS, OF_NUMBERS = "toolkitnumbers.h", re.compile(r"\btoolkit::\w+")
# What the host's headers need among themselves; a platform has its own way.
OWN_AFFAIRS = {"platform_export.h"}
# Names that the library takes from elsewhere, and that a header has as well.
OF_OTHER_CLASSES = {("ysegmentfield.h", "isYEnabled"), ("ysegmentfield.h", "setLabel"),
                    ("ylistbox.h", "release"), ("ymessagedlg.h", "MessageType"), ("yskinservice.h", "Separator")}
NO_NAMES = {"if", "while", "for", "switch", "return", "sizeof", "static_assert", "offsetof", "delete",
            "operator", "default", "defined", "d", "const", "override", "__attribute__", "visibility"}
INCLUDE = re.compile(r'^\s*#\s*include\s*[<"]([\w.]+)[>"]', re.MULTILINE)


def declared_names(text):
    """name -> whether it is used with parentheses behind it."""
    tokens = [token for token in tokens_of(text) if token.kind != "directive"]
    names = {}
    depth_of_enum = None
    depth = 0
    for i, token in enumerate(tokens):
        after = tokens[i + 1].text if i + 1 < len(tokens) else ""
        before = tokens[i - 1].text if i else ""
        if token.text == "{":
            depth += 1
            if "enum" in [other.text for other in tokens[max(0, i - 3) : i]]:
                depth_of_enum = depth
        elif token.text == "}":
            depth_of_enum = None if depth_of_enum == depth else depth_of_enum
            depth -= 1
        elif token.kind != "word" or token.text in NO_NAMES:
            continue
        elif depth_of_enum == depth and before in ("{", ","):
            names[token.text] = False
        elif before in ("class", "struct", "enum", "VORN_PLATFORM_API") and after in ("{", ":"):
            names[token.text] = False
        elif after == "(" and before not in ("~", "("):
            names.setdefault(token.text, True)
        elif after in (";", "[") and before not in ("class", "struct", "friend"):
            names[token.text] = False
    return {name: call for name, call in names.items() if len(name) > 1 and not name.startswith("VORN")}


def used_names(root):
    words, calls, headers = set(), set(), set()
    for folder in LIBRARY:
        for path in (root / folder).rglob("*"):
            if path.suffix in (".h", ".cpp") and path.name != NUMBERS:
                text = OF_NUMBERS.sub("", path.read_text(encoding="utf-8"))
                headers |= set(INCLUDE.findall(text))
                tokens = [token for token in tokens_of(text) if token.kind != "directive"]
                words |= {token.text for token in tokens if token.kind == "word"}
                calls |= {token.text for token, after in zip(tokens, tokens[1:]) if after.text == "("}
    return words, calls, headers


def platform_headers(root, included):
    """The texts of the platform's headers that are included, and of those that they include."""
    folder = root / "platform/include"
    texts, waiting = {}, sorted(included)
    while waiting:
        name = waiting.pop()
        path = folder / name
        if name in texts or name in OWN_AFFAIRS or not path.is_file():
            continue
        texts[name] = path.read_text(encoding="utf-8")
        waiting.extend(INCLUDE.findall(texts[name]))
    return texts


def names_of_qt():
    texts = [path.read_text(encoding="utf-8") for path in (HERE / "qt2").glob("*.h")]
    return {name for text in texts for name, call in declared_names(text).items() if call}


def sections_of(document):
    found = {}
    for section in re.split(r"^#+ ", document, flags=re.MULTILINE):
        heading = re.match(r"`([\w.]+\.h)`", section)
        if heading:
            code = " ".join(re.findall(r"`([^`]*)`", section))
            found[heading.group(1)] = set(re.findall(r"\w+", code))
    return found


def wrong_numbers(document, texts):
    values = {name: value for text in texts for name, value in re.findall(r"\b(\w+) = (\w+)", text)}
    section = re.search(r"^### Numbers$(.*?)(?=^#|\Z)", document, re.MULTILINE | re.DOTALL)
    for name, value in re.findall(r"`(\w+)` (\w+)", section.group(1)) if section else ():
        if values.get(name) != value:
            yield f"{DOCUMENT} says that {name} is {value}, the headers {values.get(name, 'nothing')}"


def superfluous(root):
    words, calls, included = used_names(root)
    document = (root / DOCUMENT).read_text(encoding="utf-8")
    texts = platform_headers(root, included)
    for header, named in sorted(sections_of(document).items()):
        if header not in texts:
            yield f"{DOCUMENT} has a section on {header}, which the library does not include"
            continue
        declared = declared_names(texts[header])
        classes = {found.name for found in classes_of(texts[header])}
        for name in sorted(named & declared.keys() - classes):
            if name not in (calls if declared[name] else words):
                yield f"{DOCUMENT} names {name} of {header}, which the library does not use"
    yield from wrong_numbers(document, texts.values())


def missing(root):
    words, calls, included = used_names(root)
    sections = sections_of((root / DOCUMENT).read_text(encoding="utf-8"))
    shared = names_of_qt()
    for header, text in sorted(platform_headers(root, included).items()):
        taken = {name for name, call in declared_names(text).items()
                 if name in (calls if call else words) and not (call and name in shared)}
        taken -= {name for other, name in OF_OTHER_CLASSES if other == header}
        if taken and header not in sections:
            yield f"{DOCUMENT} has no section on {header}"
        for name in sorted(taken - sections.get(header, set())):
            yield f"{DOCUMENT} does not name {name} of {header}"


if __name__ == "__main__":
    project = pathlib.Path(sys.argv[1])
    found = [*missing(project), *superfluous(project)]
    print("\n".join(found) or f"{DOCUMENT} names all that the library takes from the platform, and no more")
    sys.exit(1 if found else 0)
