"""The dialect's rules find what is written otherwise, mend it, and leave the rest alone."""

import unittest

import dialect

MENDED = {
    "EXPECT_EQ(0, result());": "EXPECT_EQ(result(), 0);",
    'ASSERT_EQ("a, b", text(1, {2, 3}));': 'ASSERT_EQ(text(1, {2, 3}), "a, b");',
    'EXPECT_STREQ("it\\"s (so", name) << "why";': 'EXPECT_STREQ(name, "it\\"s (so") << "why";',
    "EXPECT_EQ(NAPI_OK, call(')', \"(\"));": "EXPECT_EQ(call(')', \"(\"), NAPI_OK);",
    "EXPECT_EQ(1'000, count);\nEXPECT_EQ(-5, other);": "EXPECT_EQ(count, 1'000);\nEXPECT_EQ(other, -5);",
    "EXPECT_EQ(1, run([] { EXPECT_EQ(2, two()); }));": "EXPECT_EQ(run([] { EXPECT_EQ(two(), 2); }), 1);",
    "EXPECT_EQ(2, find(u'\"'));": "EXPECT_EQ(find(u'\"'), 2);",
    "std::uint8_t one; std::int64_t two;": "uint8_t one; int64_t two;",
    "size_t one(size_t two);": "std::size_t one(std::size_t two);",
}

LEFT_ALONE = [
    "EXPECT_EQ(result(), 0);", "EXPECT_EQ(one, other);", "EXPECT_EQ(1, 1);", "EXPECT_LT(0, result());",
    "EXPECT_EQ(0 + offset, place);", "EXPECT_EQ(begin(0), 0) << std::string(1, 'x');",
    "std::size_t size; my_std_uint8_t x;", "ssize_t one; ::size_t two;", "int took, knob; // 4096 kB",
    'name("kName");', "unit(benchmark::kMillisecond);",
]


TOLD = ["constexpr int kLongest = 3;", "const char kKeys[] = {};", "count = LockedFolder::kPatience;"]

STATIC = ["static int count();", "int x;\nstatic const char text[] = \"\";", "static void Printed(int);"]

NOT_STATIC = [
    "void one()\n{\n    static int count = 0;\n}", "static_assert(true);",
    "static void PrintTo(const Row& row, std::ostream* out)", "static bool operator==(const Row& a, const Row& b)",
]


class Dialect(unittest.TestCase):
    def test_what_is_written_otherwise_is_found_and_mended(self):
        for text, expected in MENDED.items():
            with self.subTest(text):
                self.assertTrue(list(dialect.faults_of(text)))
                self.assertEqual(dialect.mended(text), expected)

    def test_what_is_mended_is_found_no_more(self):
        for text in MENDED.values():
            self.assertEqual(list(dialect.faults_of(text)), [])

    def test_everything_else_is_left_alone(self):
        for text in LEFT_ALONE:
            with self.subTest(text):
                self.assertEqual(list(dialect.faults_of(text)), [])
                self.assertEqual(dialect.mended(text), text)

    def test_a_constant_has_no_letter_before_its_name(self):
        for text in TOLD:
            with self.subTest(text):
                self.assertTrue(list(dialect.faults_of(text)))

    def test_what_one_source_has_for_itself_is_not_static(self):
        for text in STATIC:
            with self.subTest(text):
                self.assertTrue(list(dialect.static_faults_of(text)))
        for text in NOT_STATIC:
            with self.subTest(text):
                self.assertEqual(list(dialect.static_faults_of(text)), [])

    def test_the_line_is_told(self):
        self.assertEqual(next(dialect.faults_of("\n\nEXPECT_EQ(0, x);"))[0], 3)


if __name__ == "__main__":
    unittest.main()
