"""Writes a source with the examples that stand in the comments of headers, so that a compiler reads them.

Usage: header_examples.py OUTPUT HEADERS... An example is a run of comment lines that are indented by five
blanks. Its #include lines stand at the top of the source; the rest becomes a member function of a class that
has what examples take for granted. Every header of include/ has one, except those that only belong to another.
"""

import pathlib
import re
import sys

WITHOUT_EXAMPLE = {"vornqtnapi_export.h", "vornqtnapi_keywords_begin.h", "vornqtnapi_keywords_end.h", "ylinkinfo.h"}

FIRST = """#include <qobject.h>
#include <qwidget.h>
"""

# What the examples take for granted.
PRELUDE = """
class Application : public QObject
{
    QWidget* form;
    YLineEdit* field;
    YDataSessionManager* manager;
    QString lastUsedProfile;
    int link;
    int linkId;
    void use(const QString&);
    void use(int);
    void offerWifi();

"""


def examples_of(text):
    """The lines of each example; "..." stands for something between them."""
    found, open_one = [], None
    for line in text.splitlines():
        match = re.match(r"\s*//(?:     (.*)|$)", line)
        if not match:
            open_one = None
            continue
        if open_one is None and match.group(1):
            open_one = []
            found.append(open_one)
        if match.group(1) and match.group(1) != "...":
            open_one.append(match.group(1))
    return found


def source_of(headers):
    """headers: name to text."""
    examples = {name: examples_of(text) for name, text in sorted(headers.items()) if examples_of(text)}
    includes = {f"#include <{name}>" for name in examples}
    functions = []
    for name, found in examples.items():
        for number, lines in enumerate(found, 1):
            includes |= {line for line in lines if line.startswith("#include")}
            body = "".join(f"        {line}\n" for line in lines if not line.startswith("#include"))
            function = re.sub(r"\W", "_", name) + str(number)
            functions.append(f"    void {function}()\n    {{\n{body}    }}\n")
    return FIRST + "".join(f"{line}\n" for line in sorted(includes)) + PRELUDE + "\n".join(functions) + "};\n"


def main(output, *arguments):
    paths = [pathlib.Path(argument) for argument in arguments]
    headers = {path.name: path.read_text(encoding="utf-8") for path in paths}
    without = [str(path) for path in paths if path.parts[-3:-1] != ("platform", "include")
               and path.name not in WITHOUT_EXAMPLE and not examples_of(headers[path.name])]
    if without:
        sys.exit(f"no example of use in {', '.join(without)}")
    pathlib.Path(output).write_text(source_of(headers), encoding="utf-8")


if __name__ == "__main__":
    main(*sys.argv[1:])
