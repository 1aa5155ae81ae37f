"""What the site's tools make of headers and pages, and that the documents have the formats of the headers."""

import pathlib
import re
import sys
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
sys.path[:0] = [str(ROOT / "docs/site"), str(ROOT / "tests/rules")]
import doxygen_comments
import site_links
import tables

SIZES = {"uint8_t": 1, "char": 1, "uint16_t": 2, "uint32_t": 4}


class Comments(unittest.TestCase):
    def converted(self, *lines):
        return doxygen_comments.converted("\n".join(("// The file.", "", *lines))).splitlines()[3:]

    def test_a_comment_above_a_declaration_is_about_it(self):
        self.assertEqual(self.converted("// Adds.", "int add(int);"), ["/// Adds.", "int add(int);"])

    def test_declarations_in_one_run_share_their_comment(self):
        self.assertEqual(self.converted("// Both.", "int one();", "int two();", "", "int three();"),
                         ["/// Both.", "int one();", "/// Both.", "int two();", "", "int three();"])

    def test_a_comment_behind_a_declaration_is_about_that(self):
        self.assertEqual(self.converted("int m; // metres"), ["int m; ///< metres"])

    def test_a_comment_with_a_blank_line_below_is_about_the_file(self):
        self.assertEqual(self.converted("// About all.", "", "int f();"), ["/// @file", "/// About all.", "", "int f();"])

    def test_what_is_qts_own_is_left_out_unless_it_says_something(self):
        self.assertEqual(self.converted("void paintEvent(QPaintEvent* event);"), [])
        self.assertEqual(self.converted("// Moves.", "bool event(QEvent*);"), ["/// Moves.", "bool event(QEvent*);"])

    def test_bytes_without_a_name_are_left_out(self):
        self.assertEqual(self.converted("    uint8_t kept2[2];"), [])


class Tables(unittest.TestCase):
    def test_each_result_of_the_network_api_has_a_call_that_gives_it(self):
        given = tables.givers(ROOT)
        names = [name for number, name, _ in tables.codes(ROOT, "vornResult") if name.startswith("NAPI_ERR_")]
        self.assertGreater(len(names), 15)
        self.assertEqual([name for name in names if not given.get(name)], [])

    def test_the_librarys_own_results_have_their_numbers(self):
        self.assertIn((-100, "VORN_ERR_NONE_CHOSEN", "no profile was chosen"), tables.codes(ROOT, "vornResult"))

    def test_the_guide_has_a_place_for_each_table(self):
        text = (ROOT / "docs/guide.md").read_text(encoding="utf-8")
        self.assertEqual(re.findall(r"<!-- table: (\w+) -->", text), ["results", "causes"])
        for name in ("results", "causes"):
            self.assertIn("| `NAPI_", tables.of(ROOT, name))


class Formats(unittest.TestCase):
    """docs/formats.md against the structures of napi.h, whose places the compiler holds."""

    def members(self, structure):
        text = (ROOT / "platform/include/napi.h").read_text(encoding="utf-8")
        body = re.search(rf"struct {structure}\n\{{(.*?)\n\}};", text, re.DOTALL).group(1)
        place = 0
        for kind, name, count in re.findall(r"^ *(\w+) (\w+)(?:\[(\d+)\])?;", body, re.MULTILINE):
            size = SIZES[kind] * int(count or 1)
            yield place, size, name
            place += size

    def described(self, part):
        text = (ROOT / "docs/formats.md").read_text(encoding="utf-8")
        section = text.split(f"## {part}\n")[1].split("\n## ")[0]
        return [(int(place), int(size), name)
                for place, size, name in re.findall(r"^\| (\d+) \| (\d+) \| `(\w+)` \|", section, re.MULTILINE)]

    def test_the_record_is_described_byte_by_byte(self):
        members = list(self.members("NetworkProfile"))
        self.assertEqual(self.described("A stored profile"), members)
        self.assertEqual(members[-1][0] + members[-1][1], 1168)

    def test_the_indication_is_described_byte_by_byte(self):
        members = list(self.members("NapiIndication"))
        self.assertEqual(self.described("An indication"), members)
        self.assertEqual(members[-1][0] + members[-1][1], 112)


class Links(unittest.TestCase):
    def dead(self, page):
        with tempfile.TemporaryDirectory() as folder:
            site = pathlib.Path(folder)
            (site / "a.html").write_text(page, encoding="utf-8")
            (site / "b.html").write_text('<h1 id="top">B</h1>', encoding="utf-8")
            return list(site_links.dead_links(site))

    def test_links_that_lead_somewhere_are_no_finding(self):
        self.assertEqual(self.dead('<a href="b.html#top">b</a> <a href="https://example.org/x">x</a> <i id="me"><a href="#me">'), [])

    def test_a_page_and_a_place_that_are_not_there_are_found(self):
        self.assertEqual(self.dead('<a href="c.html"> <a href="b.html#end"> <img src="../x.png">'),
                         ["a.html: c.html is not there", "a.html: b.html#end names a place that its page has not",
                          "a.html: ../x.png is not there"])


if __name__ == "__main__":
    unittest.main()
