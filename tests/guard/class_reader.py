"""Reads the classes of a C++ header as far as a moc has to: names, bases, sections, members."""

import dataclasses
import re

TOKEN = re.compile(
    r"""
      (?P<comment>//[^\n]*|/\*.*?\*/)
    | (?P<raw>(?:u8|[uUL])?R"(?P<delimiter>[^()\s\\"]{0,16})\(.*?\)(?P=delimiter)")
    | (?P<string>(?:u8|[uUL])?"(?:\\.|[^"\\\n])*")
    | (?P<character>(?:u8|[uUL])?'(?:\\.|[^'\\\n])*')
    | (?P<directive>(?<![^\n])[ \t]*\#(?:\\\n|//[^\n]*|/\*.*?\*/|[^\n])*)
    | (?P<number>\d(?:'?[\w.])*)
    | (?P<word>[A-Za-z_]\w*)
    | (?P<mark>::|->|<<|&&|\.\.\.|\[\[|\]\]|[^\s\w])
    """,
    re.VERBOSE | re.DOTALL,
)


@dataclasses.dataclass
class Token:
    kind: str
    text: str
    line: int


@dataclasses.dataclass
class Member:
    section: str  # "public", "protected slots", "signals", ...
    tokens: list  # without the body and the closing semicolon

    @property
    def line(self):
        return self.tokens[0].line


@dataclasses.dataclass
class Class:
    key: str
    name: str
    line: int
    final: bool
    nested: bool
    template: bool
    bases: list  # of the tokens of each base
    scope: list  # the namespaces and classes around it
    q_object: bool = False
    members: list = dataclasses.field(default_factory=list)

    @property
    def qualified_name(self):
        return "::".join(self.scope + [self.name])


def tokens_of(text):
    """All tokens but comments, each with its line."""
    found = []
    for match in TOKEN.finditer(text):
        kind = match.lastgroup if match.lastgroup != "delimiter" else "raw"
        if kind != "comment":
            found.append(Token(kind, match.group(), text.count("\n", 0, match.start()) + 1))
    return found


def spelled(tokens):
    """The tokens as text, with blanks only between two words: const QString& as a moc spells it."""
    text = ""
    for token in tokens:
        if text and text[-1].isalnum() | (text[-1] == "_") and token.kind in ("word", "number"):
            text += " "
        text += token.text
    return text


class Reader:
    def __init__(self, text):
        self.tokens = [token for token in tokens_of(text) if token.kind != "directive"]
        self.at = 0
        self.classes = []

    def peek(self, offset=0):
        index = self.at + offset
        return self.tokens[index].text if 0 <= index < len(self.tokens) else ""

    def skip_group(self, opening, closing):
        """Goes behind the mark that closes the group that opens here."""
        depth = 0
        while self.at < len(self.tokens):
            depth += (self.peek() == opening) - (self.peek() == closing)
            self.at += 1
            if depth == 0:
                return

    def read(self, scope=(), owner=None):
        """Reads up to the brace that closes the scope, or to the end."""
        section = "private" if owner and owner.key == "class" else "public"
        statement = []
        template = False
        while self.at < len(self.tokens) and self.peek() != "}":
            word = self.peek()
            heading = self.section_heading() if owner and not statement else None
            if heading:
                section = heading
            elif word == "namespace" and not owner:
                self.read_namespace(scope)
            elif word == "template" and self.peek(1) == "<":
                template = True
                statement = [self.tokens[self.at]]
                self.at += 1
                self.skip_group("<", ">")
            elif word in ("class", "struct") and self.defines_class():
                self.read_class(scope, owner, template)
                template = False
                statement = []
            elif word == "{":
                self.skip_group("{", "}")
                if self.peek() not in (",", ";", "{", "="):
                    statement = self.finish(owner, section, statement)
                    template = False
            elif word == ";":
                self.at += 1
                statement = self.finish(owner, section, statement)
                template = False
            elif owner and word == "Q_OBJECT":
                owner.q_object = True
                self.at += 1
            else:
                statement.append(self.tokens[self.at])
                self.at += 1
        self.at += 1

    @staticmethod
    def finish(owner, section, statement):
        if owner and statement:
            owner.members.append(Member(section, statement))
        return []

    def section_heading(self):
        words = []
        while self.peek(len(words)) in ("public", "protected", "private", "signals", "slots"):
            words.append(self.peek(len(words)))
        if not words or self.peek(len(words)) != ":":
            return None
        self.at += len(words) + 1
        return " ".join(words)

    def read_namespace(self, scope):
        self.at += 1
        names = []
        while self.peek() not in ("{", ";", "=", ""):
            names.append(self.peek())
            self.at += 1
        if self.peek() != "{":
            return
        self.at += 1
        self.read(list(scope) + [name for name in names if name != "::"])

    def defines_class(self):
        if self.peek(-1) == "enum":
            return False
        offset = 1
        while self.peek(offset) not in ("{", ";", "(", ")", "=", ""):
            offset += 1
        return self.peek(offset) == "{"

    def read_class(self, scope, owner, template):
        first = self.tokens[self.at]
        head = []
        self.at += 1
        while self.peek() != "{":
            head.append(self.tokens[self.at])
            self.at += 1
        self.at += 1
        colon = next((i for i, token in enumerate(head) if token.text == ":"), len(head))
        words = [token.text for token in head[:colon] if token.kind == "word"]
        final = bool(words) and words[-1] == "final"
        if final:
            words.pop()
        found = Class(first.text, words[-1] if words else "", first.line, final, owner is not None,
                      template, bases_of(head[colon + 1:]), list(scope))
        self.classes.append(found)
        self.read(list(scope) + [found.name], found)


def bases_of(tokens):
    bases = []
    depth = 0
    for token in tokens:
        depth += (token.text == "<") - (token.text == ">")
        if token.text == "," and depth == 0:
            bases.append([])
        else:
            if not bases:
                bases.append([])
            bases[-1].append(token)
    return bases


def classes_of(text):
    reader = Reader(text)
    reader.read()
    return reader.classes


def signature(member):
    """activated(int) for `void activated(int index = 0)`; None for what is no function."""
    texts = [token.text for token in member.tokens]
    if "(" not in texts:
        return None
    opening = texts.index("(")
    parameters = [[]]
    depth = 0
    for token in member.tokens[opening:]:
        depth += (token.text in "(<") - (token.text in ")>")
        if depth == 0:
            break
        if token.text == "," and depth == 1:
            parameters.append([])
        elif not (token.text == "(" and depth == 1 and not parameters[-1] and len(parameters) == 1):
            parameters[-1].append(token)
    types = [spelled(type_of(parameter)) for parameter in parameters if parameter]
    types = [] if types == ["void"] else types
    return f"{texts[opening - 1]}({','.join(types)})"


TYPE_WORDS = {"const", "unsigned", "signed", "short", "long", "int", "char", "bool", "float", "double",
              "struct", "class", "enum", "void"}


def type_of(parameter):
    """The parameter without its name and default."""
    texts = [token.text for token in parameter]
    if "=" in texts:
        parameter = parameter[: texts.index("=")]
    last = parameter[-1]
    named = (len(parameter) > 1 and last.kind == "word" and last.text not in TYPE_WORDS
             and parameter[-2].text not in ("::", "const", "struct", "class", "enum"))
    if named and all(token.text in ("const",) for token in parameter[:-1]):
        named = False
    return parameter[:-1] if named else parameter
