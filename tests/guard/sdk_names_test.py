"""Tests of the check that the document on the phone's build names the platform's names."""

import pathlib
import tempfile
import unittest

import sdk_names

HEADER = """
#include "other.h"
enum Code { CODE_OK = 0, CODE_BAD = 1 };
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
"""


class SdkNames(unittest.TestCase):
    def check(self, document, source=SOURCE):
        with tempfile.TemporaryDirectory() as folder:
            root = pathlib.Path(folder)
            files = {"platform/include/ything.h": HEADER, "platform/include/other.h": "int otherCall();",
                     "session/use.cpp": source, "docs/phone-build.md": document}
            for name, text in files.items():
                (root / name).parent.mkdir(parents=True, exist_ok=True)
                (root / name).write_text(text)
            return list(sdk_names.missing(root))

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

    def test_asks_for_nothing_that_is_not_used(self):
        self.assertEqual([], self.check("", "int nothing();"))


if __name__ == "__main__":
    unittest.main()
