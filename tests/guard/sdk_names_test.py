"""Tests of the check that the document on the phone's build names the platform's names."""

import pathlib
import tempfile
import unittest

import sdk_names

HEADER = """
#include "other.h"
enum Code { CODE_OK = 0, CODE_BAD = 1, CODE_WORSE = 2 };
struct Record { unsigned char mark; char text[100]; int unused; };
class VORN_PLATFORM_API YThing : public QWidget
{
    Q_OBJECT
public:
    YThing(QWidget* parent);
    void setMode(int mode);
    void neverCalled();
    void setEnabled(bool);
};
"""

SOURCE = """
#include <ything.h>
int use(Record& record, YThing* thing)
{
    thing->setMode(CODE_BAD);
    thing->setEnabled(true);
    // CODE_OK is only mentioned
    return record.mark + record.text[0] + otherCall();
}
"""

DOCUMENT = """
### `ything.h`

`YThing` with `setMode`; `CODE_BAD`, and `Record` with `mark` and `text`.

### `other.h`

`otherCall()`

### Numbers

`CODE_WORSE` 2
"""


class SdkNames(unittest.TestCase):
    def check(self, document, source=SOURCE, judge=sdk_names.missing):
        with tempfile.TemporaryDirectory() as folder:
            root = pathlib.Path(folder)
            files = {"platform/include/ything.h": HEADER, "platform/include/other.h": "int otherCall();",
                     "session/use.cpp": source, "docs/phone-build.md": document}
            for name, text in files.items():
                (root / name).parent.mkdir(parents=True, exist_ok=True)
                (root / name).write_text(text)
            return list(judge(root))

    def superfluous(self, document, source=SOURCE):
        return self.check(document, source, sdk_names.superfluous)

    def test_is_content_with_every_name(self):
        self.assertEqual([], self.check(DOCUMENT))

    def test_misses_each_name_that_is_used(self):
        for name in ("YThing", "setMode", "CODE_BAD", "Record", "mark", "text"):
            with self.subTest(name):
                lacking = DOCUMENT.replace(f"`{name}`", name)
                self.assertEqual([f"docs/phone-build.md does not name {name} of ything.h"],
                                 self.check(lacking))

    def test_misses_a_header_that_another_one_brings(self):
        lacking = DOCUMENT.replace("### `other.h`", "### The other")
        self.assertEqual(["docs/phone-build.md has no section on other.h",
                          "docs/phone-build.md does not name otherCall of other.h"], self.check(lacking))

    def test_takes_a_name_only_from_its_own_section(self):
        moved = DOCUMENT.replace("`setMode`", "its mode").replace("`otherCall()`", "`otherCall`, `setMode`")
        self.assertEqual(["docs/phone-build.md does not name setMode of ything.h"], self.check(moved))

    def test_leaves_out_what_a_class_of_qt_has_too(self):
        self.assertNotIn("setEnabled", DOCUMENT)
        self.assertEqual([], self.check(DOCUMENT))

    def test_leaves_out_what_the_library_names_for_itself(self):
        own = SOURCE.replace("(CODE_BAD)", "(toolkit::CODE_BAD)")
        self.assertEqual([], self.check(DOCUMENT.replace("`CODE_BAD`", "a code"), own))

    def test_asks_for_nothing_that_is_not_used(self):
        self.assertEqual([], self.check("", "int nothing();"))

    def test_is_content_when_nothing_is_named_for_nothing(self):
        self.assertEqual([], self.superfluous(DOCUMENT))

    def test_finds_what_is_named_and_not_used(self):
        for name in ("neverCalled", "unused", "CODE_OK"):
            with self.subTest(name):
                longer = DOCUMENT.replace("`CODE_BAD`", f"`CODE_BAD`, `{name}`")
                self.assertEqual(
                    [f"docs/phone-build.md names {name} of ything.h, which the library does not use"],
                    self.superfluous(longer))

    def test_finds_a_section_on_a_header_that_is_not_included(self):
        found = self.superfluous(DOCUMENT, "int nothing();")
        for header in ("other.h", "ything.h"):
            self.assertIn(f"docs/phone-build.md has a section on {header}, which the library does not include",
                          found)

    def test_finds_a_number_that_is_another_one(self):
        for wrong, found in (("`CODE_WORSE` 3", "CODE_WORSE is 3, the headers 2"),
                             ("`CODE_NONE` 2", "CODE_NONE is 2, the headers nothing")):
            with self.subTest(wrong):
                self.assertEqual([f"docs/phone-build.md says that {found}"],
                                 self.superfluous(DOCUMENT.replace("`CODE_WORSE` 2", wrong)))


if __name__ == "__main__":
    unittest.main()
