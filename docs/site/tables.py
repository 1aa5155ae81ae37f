"""Tables of the site that are made from the headers."""

import re

ENTRY = re.compile(r'\{(-?\w+), "(\w*)",\s*"([^"]*)"\}')
VALUE = re.compile(r"^\s*(\w+) = (-?\d+)", re.MULTILINE)
CALL = re.compile(r"((?:^// ?.*\n)+)^VORN_PLATFORM_API [\w ]+?(NAPI_\w+)\(", re.MULTILINE)


def codes(root, function):
    """(number, name, text) of each entry of a function of vornqtnapi_texts.h."""
    text = (root / "include/vornqtnapi_texts.h").read_text(encoding="utf-8")
    numbers = {name: int(value) for name, value in VALUE.findall(text)}
    body = text[text.index(f"& {function}("):]
    body = body[:body.index("return vornFindCode")]
    return [(numbers.get(code) if code in numbers else int(code), name, said)
            for code, name, said in ENTRY.findall(body) if name]


def givers(root):
    """For the name of each result, the calls of the network API that give it."""
    found = {}
    for comment, call in CALL.findall((root / "platform/include/napi.h").read_text(encoding="utf-8")):
        for name in re.findall(r"NAPI_ERR_\w+", comment):
            found.setdefault(name, []).append(call)
    return found


def results(root):
    lines = ["| number | name | what it says | from |", "|---:|---|---|---|"]
    calls = givers(root)
    for number, name, text in codes(root, "vornResult"):
        origin = ", ".join(f"`{call}`" for call in dict.fromkeys(calls.get(name, [])))
        lines.append(f"| {number} | `{name}` | {text} | {origin or ('every call' if number == 0 else 'the library')} |")
    return "\n".join(lines)


def causes(root):
    lines = ["| number | name | what it says |", "|---:|---|---|"]
    lines += [f"| {number} | `{name}` | {text} |" for number, name, text in codes(root, "vornCause")]
    return "\n".join(lines)


def of(root, name):
    return {"results": results, "causes": causes}[name](root)
