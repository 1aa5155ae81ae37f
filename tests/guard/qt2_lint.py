"""Refuses what compiles today and would not work on Qt 2.3. Usage: qt2_lint.py ROOT.

Four things that no compiler tells: class headers that the moc of Qt 2.3 cannot read, texts of connections
that it does not find, calls that both Qts have and answer differently, and sources that ask which Qt they
are compiled with. Prints each finding and exits with 1 if there is any.
"""

import pathlib
import re
import sys

from class_reader import TOKEN, classes_of, signature, tokens_of

LIBRARY = ("include", "support", "widgets", "wizard", "profiles", "session")
FOLDERS = LIBRARY + ("platform/include",)

# The headers in which the two Qts meet.
SEAM = ("support/qt.h", "support/qt2.h", "support/qt6.h")

# Signals and slots of Qt 2.3's own classes that connections may name.
QT_SIGNALS = {
    "destroyed()", "clicked()", "pressed()", "released()", "toggled(bool)", "textChanged(const QString&)",
    "returnPressed()", "activated(int)", "highlighted(int)", "activated(const QString&)", "timeout()",
    "readyRead()", "connectionClosed()", "error(int)",
}
QT_SLOTS = {
    "show()", "hide()", "close()", "update()", "setFocus()", "clear()", "setText(const QString&)", "quit()",
    "stop()", "setEnabled(bool)", "accept()", "reject()",
}

WHICH_QT = re.compile(r"^(QT_VERSION\w*|qVersion|QWS|_?_?Q_WS_\w+|_WS_\w+_|QT_THREAD_SUPPORT|QT_\w+_LIB)$")
MACRO = re.compile(r"^[A-Z][A-Z0-9_]{2,}$")


def is_section_of_signals_or_slots(section):
    return section == "signals" or section.endswith("slots")


# ---- What the moc of Qt 2.3 reads ----


def lint_directives(tokens):
    """Conditions are not evaluated: both branches are read. Only the guard around the header may stay."""
    directives = [token for token in tokens if token.kind == "directive"]
    conditions = [token for token in directives if re.match(r"\s*#\s*(if|el|endif)", token.text)]
    if conditions and re.match(r"\s*#\s*ifndef", conditions[0].text) and conditions[0] is directives[0]:
        conditions = conditions[1:-1]
    for token in conditions:
        if not re.match(r"\s*#\s*endif", token.text):
            yield token.line, "a condition of the preprocessor; both of its branches would be read"


def lint_tokens(tokens):
    for i, token in enumerate(tokens):
        after = [other.text for other in tokens[i + 1 : i + 3]]
        if token.kind == "raw":
            yield token.line, "a raw string cannot be read"
        elif token.text == "namespace" and len(after) == 2 and after[1] == "::":
            yield token.line, "a nested namespace in one word cannot be read"
        elif token.text == "template" and after[:1] == ["<"]:
            if "(" in template_parameters(tokens[i + 1 :]):
                yield token.line, "parentheses among template parameters cannot be read"
        elif re.match(r"^Q_(EMIT|SLOTS?|SIGNALS?|INVOKABLE|GADGET|NAMESPACE|ENUM|FLAG)$", token.text):
            yield token.line, f"{token.text} is unknown"


def template_parameters(tokens):
    depth = 0
    texts = []
    for token in tokens:
        depth += (token.text == "<" and "(" not in texts) - (token.text == ">" and "(" not in texts)
        texts.append(token.text)
        if depth == 0 or token.text in ("{", ";"):
            break
    return texts


def lint_class(found):
    if found.key != "class":
        yield found.line, f"{found.name} is a struct: its Q_OBJECT goes unseen"
    if found.final:
        yield found.line, f"{found.name} is final: what moc writes would be broken"
    if found.nested:
        yield found.line, f"{found.name} lies inside a class: its Q_OBJECT goes unseen"
    if found.template:
        yield found.line, f"{found.name} is a template and has a Q_OBJECT"
    first_base = [token.text for token in found.bases[0]] if found.bases else []
    if first_base[:1] != ["public"] or "<" in first_base or "virtual" in first_base:
        yield found.line, f"the first base of {found.name} has to be a public QObject and no template"
    for member in found.members:
        if is_section_of_signals_or_slots(member.section):
            for reason in lint_member(found, member):
                yield member.line, f"among the {member.section}: {reason}"


NOT_AMONG_SLOTS = {
    "override": "override is a syntax error; declare the slot once more under a plain section",
    "final": "final is a syntax error",
    "noexcept": "noexcept is a syntax error",
    "[[": "an attribute is a syntax error",
    "__attribute__": "an attribute is a syntax error",
    "template": "a template is a syntax error",
    "<": "a template type is a syntax error",
    "friend": "a friend cannot be declared here",
    "typedef": "a type cannot be declared here",
    "using": "a type cannot be declared here",
    "enum": "an enumeration cannot be declared here",
    "operator": "an operator cannot be a slot",
    "static": "a static function cannot be a slot",
    "->": "a trailing result cannot be read",
    "&&": "a reference to a temporary cannot be read",
}


def lint_member(found, member):
    texts = [token.text for token in member.tokens]
    for text, reason in NOT_AMONG_SLOTS.items():
        if text in texts:
            yield reason
    for text in texts:
        if MACRO.match(text):
            yield f"{text} is a macro and would not be expanded"
    if "(" not in texts:
        yield "a variable or a type cannot be declared here"
        return
    opening = texts.index("(")
    closing = len(texts) - 1 - texts[::-1].index(")")
    if "(" in texts[opening + 1 : closing]:
        yield "a parameter that is a function pointer is a syntax error"
    if "=" in texts[opening:closing]:
        yield "a default argument gives connections other names on either Qt"
    if texts[closing + 1 :] not in ([], ["const"], ["=", "0"], ["const", "=", "0"]):
        if not set(texts[closing + 1 :]) & set(NOT_AMONG_SLOTS):
            yield "nothing but const and = 0 may follow the parameters"
    if texts[opening - 1] == found.name:
        yield "a constructor or destructor cannot be a slot"


def lint_header(text):
    """Findings (line, reason) in a header that a moc reads; none for a header without Q_OBJECT."""
    classes = [found for found in classes_of(text) if found.q_object]
    tokens = tokens_of(text)
    if not classes:
        if any(token.text == "Q_OBJECT" for token in tokens):
            yield 1, "Q_OBJECT stands outside of a class"
        return
    yield from lint_directives(tokens)
    yield from lint_tokens([token for token in tokens if token.kind != "directive"])
    for found in classes:
        yield from lint_class(found)


# ---- Texts of connections ----


def canonical(text):
    """activated(int) for "activated ( int )": what both Qts make of a text. None for what is none."""
    match = re.fullmatch(r"\s*(\w+)\s*\((.*)\)\s*", text, re.DOTALL)
    if not match:
        return None
    parameters = re.sub(r"\s+", " ", match.group(2)).strip()
    parameters = re.sub(r" ?([&*,<>]) ?", r"\1", parameters)
    return f"{match.group(1)}({'' if parameters == 'void' else parameters})"


def parameters_of(text):
    inner = text[text.index("(") + 1 : -1]
    return inner.split(",") if inner else []


TEXT = re.compile(r"\b(SIGNAL|SLOT)\s*\(((?:[^()]|\([^()]*\))*)\)")
LITERAL = re.compile(r'"([12])([^"\\]*\([^"\\]*\)[^"\\]*)"')
PAIR = re.compile(
    r"\bconnect\s*\([^;]*?\bSIGNAL\s*\(((?:[^()]|\([^()]*\))*)\)[^;]*?\bSLOT\s*\(((?:[^()]|\([^()]*\))*)\)")


def without_comments(text):
    """The source with blanks in the place of its comments, so that lines keep their numbers."""

    def blank(match):
        kept = match.group() if match.lastgroup != "comment" else re.sub(r"[^\n]", " ", match.group())
        return kept

    return TOKEN.sub(blank, text)


def texts_of(source):
    """(line, "SIGNAL" or "SLOT", text) of each connection text in a source."""
    for match in TEXT.finditer(source):
        yield source.count("\n", 0, match.start()) + 1, match.group(1), match.group(2)
    for match in LITERAL.finditer(source):
        kind = "SLOT" if match.group(1) == "1" else "SIGNAL"
        yield source.count("\n", 0, match.start()) + 1, kind, match.group(2)


def lint_connections(text, signals, slots):
    source = without_comments(text)
    for line, kind, written in texts_of(source):
        name = canonical(written)
        declared = signals if kind == "SIGNAL" else slots | signals
        if written[:1].isspace() or name is None:
            yield line, f'"{written}" names no {kind.lower()}: the name has to follow the digit at once'
        elif name not in declared:
            yield line, f"{kind}({written}) is not declared in these words anywhere"
    for match in PAIR.finditer(source):
        signal, slot = canonical(match.group(1)), canonical(match.group(2))
        if signal and slot:
            given, taken = parameters_of(signal), parameters_of(slot)
            if taken != given[: len(taken)]:
                line = source.count("\n", 0, match.start()) + 1
                yield line, f"{slot} does not take what {signal} gives; Qt 2 would connect them"


def declared_names(texts):
    """The signals and the slots of all headers, as connections have to spell them."""
    signals, slots = set(QT_SIGNALS), set(QT_SLOTS)
    for text in texts:
        for found in classes_of(text):
            for member in found.members:
                name = signature(member)
                if name and member.section == "signals":
                    signals.add(name)
                elif name and member.section.endswith("slots"):
                    slots.add(name)
    return signals, slots


# ---- Calls that differ ----

DIFFERENT = {
    r"[.>](toShort|toUShort|toInt|toUInt|toLong|toULong)\s*\(":
        "which blanks, digits and numbers it takes differs; use support::toInt32 or toUInt32",
    r"(?<!support::)(?<!\w)fromUtf8\s*\(":
        "what it makes of broken sequences differs; use support::fromUtf8",
    r"([.>]|\bQString::)compare\s*\(": "where a null text comes differs; use support::compare",
    r"\bQHostAddress\b": "which texts are addresses differs; use support::ipv4FromText",
    r"\bQDir\b": "what may be replaced differs; use support::renamePath",
    r"\bprocessEvents\s*\(": "how long it goes on differs; use support::processPending",
    r"\b(enter_loop|exit_loop)\b|\bQEventLoop\b": "levels end differently; use support::enterLoop",
    r"[.>]exec\s*\(": "on Qt 2 a level that is left inside goes on; use support::runDialog",
    r"\bQObject::tr\s*\(": "without an application it ends the program on Qt 2; use support::translate",
    r"\bQ\w*Validator::validate\s*\(": "what it takes differs; judge the text without the base class",
    r"\bSIGNAL\s*\(\s*(aboutToQuit|destroyed)\b": "when it is emitted differs; do without it",
}


def lint_calls(text):
    """Only for folders other than support/, whose helpers even these out."""
    source = without_comments(text)
    for pattern, reason in DIFFERENT.items():
        for match in re.finditer(pattern, source):
            yield source.count("\n", 0, match.start()) + 1, f"{match.group().strip('.>( ')}: {reason}"
    for token in tokens_of(text):
        if token.kind in ("string", "character") and not token.text.isascii():
            yield token.line, "bytes above 7f in a text: Latin-1 to Qt 2, UTF-8 to Qt 6; use support::fromUtf8"


# ---- Which Qt ----


def lint_which_qt(text):
    for token in tokens_of(text):
        if token.kind == "directive":
            words = re.findall(r"\w+", token.text)
            asked = [word for word in words if WHICH_QT.match(word)]
            if re.search(r"__has_include\s*\(\s*[<\"]q", token.text):
                asked.append("__has_include")
        else:
            asked = [token.text] if token.kind == "word" and WHICH_QT.match(token.text) else []
        for word in asked:
            yield token.line, f"{word} asks which Qt this is; only support/qt.h does"


# ---- The tree ----


def sources(root):
    for folder in FOLDERS:
        for path in sorted((root / folder).rglob("*")):
            if path.suffix in (".h", ".cpp"):
                yield path.relative_to(root).as_posix(), path.read_text(encoding="utf-8")


def lint(root):
    texts = dict(sources(pathlib.Path(root)))
    signals, slots = declared_names(text for name, text in texts.items() if name.endswith(".h"))
    findings = []

    def note(name, found):
        findings.extend(f"{name}:{line}: {reason}" for line, reason in found)

    for name, text in texts.items():
        if name.endswith(".h"):
            note(name, lint_header(text))
        elif any(found.q_object for found in classes_of(text)):
            note(name, [(1, "a class with a Q_OBJECT has to stand in a header")])
        if name not in SEAM:
            note(name, lint_which_qt(text))
        note(name, lint_connections(text, signals, slots))
        if not name.startswith("support/"):
            note(name, lint_calls(text))
    return findings


if __name__ == "__main__":
    found = lint(sys.argv[1])
    print("\n".join(found) or "every source suits Qt 2.3")
    sys.exit(1 if found else 0)
