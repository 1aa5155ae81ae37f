#include "support/text.h"

#include <gtest/gtest.h>

#include "support/notation.h"
#include "support/units.h"

using namespace support;

namespace {

struct Utf8Row
{
    const char* name;
    std::string bytes;
    std::string text;
};

const Utf8Row decoding[] = {
    {"nothing", "", ""},
    {"ascii", "abc", "abc"},
    {"last of one byte", "\x7f", "<007f>"},
    {"first of two bytes", "\xc2\x80", "<0080>"},
    {"two bytes", "caf\xc3\xa9", "caf<00e9>"},
    {"last of two bytes", "\xdf\xbf", "<07ff>"},
    {"first of three bytes", "\xe0\xa0\x80", "<0800>"},
    {"three bytes", "\xe2\x82\xac", "<20ac>"},
    {"before the surrogates", "\xed\x9f\xbf", "<d7ff>"},
    {"behind the surrogates", "\xee\x80\x80", "<e000>"},
    {"last of three bytes", "\xef\xbf\xbf", "<ffff>"},
    {"first of four bytes", "\xf0\x90\x80\x80", "<d800><dc00>"},
    {"four bytes",
     "a\xf0\x9f\x98\x80"
     "b",
     "a<d83d><de00>b"},
    {"the last character", "\xf4\x8f\xbf\xbf", "<dbff><dfff>"},
    {"above the last character", "\xf4\x90\x80\x80", "<fffd><fffd><fffd><fffd>"},
    {"far above the last character", "\xf7\xbf\xbf\xbf", "<fffd><fffd><fffd><fffd>"},
    {"five-byte form", "\xf8\x88\x80\x80\x80", "<fffd><fffd><fffd><fffd><fffd>"},
    {"six-byte form", "\xfc\x84\x80\x80\x80\x80", "<fffd><fffd><fffd><fffd><fffd><fffd>"},
    {"fe", "\xfe", "<fffd>"},
    {"ff", "\xff", "<fffd>"},
    {"stray continuation", "\x80", "<fffd>"},
    {"overlong solidus in two", "\xc0\xaf", "<fffd><fffd>"},
    {"overlong solidus in three", "\xe0\x80\xaf", "<fffd><fffd><fffd>"},
    {"overlong in four", "\xf0\x8f\xbf\xbf", "<fffd><fffd><fffd><fffd>"},
    {"overlong nul", "\xc0\x80", "<fffd><fffd>"},
    {"overlong last of two", "\xc1\xbf", "<fffd><fffd>"},
    {"first surrogate", "\xed\xa0\x80", "<fffd><fffd><fffd>"},
    {"last surrogate", "\xed\xbf\xbf", "<fffd><fffd><fffd>"},
    {"cut after one of two", "\xc3", "<fffd>"},
    {"cut after two of three", "a\xe2\x82", "a<fffd><fffd>"},
    {"cut after three of four", "a\xf0\x9f\x98", "a<fffd><fffd><fffd>"},
    {"cut by a letter",
     "\xc3"
     "b",
     "<fffd>b"},
    {"cut by another sequence", "\xe2\x82\xc3\xa9", "<fffd><fffd><00e9>"},
    {"latin-1 bytes", "caf\xe9 x", "caf<fffd> x"},
    {"byte order mark",
     "\xef\xbb\xbf"
     "a",
     "<feff>a"},
    {"nul inside", "a\0b"s, "a<0000>b"},
};

struct EncodingRow
{
    const char* name;
    std::u16string text;
    std::string bytes;
};

const EncodingRow encoding[] = {
    {"nothing", u""s, ""},
    {"ascii", u"abc"s, "61 62 63"},
    {"last of one byte", u"\u007f"s, "7f"},
    {"first of two bytes", u"\u0080"s, "c2 80"},
    {"last of two bytes", u"\u07ff"s, "df bf"},
    {"first of three bytes", u"\u0800"s, "e0 a0 80"},
    {"euro", u"\u20ac"s, "e2 82 ac"},
    {"last of three bytes", u"\uffff"s, "ef bf bf"},
    {"first pair", u"\U00010000"s, "f0 90 80 80"},
    {"pair", u"a\U0001f600b"s, "61 f0 9f 98 80 62"},
    {"last pair", u"\U0010ffff"s, "f4 8f bf bf"},
    {"high alone", {u'a', 0xd83d, u'b'}, "61 3f 62"},
    {"low alone", {u'a', 0xde00, u'b'}, "61 3f 62"},
    {"high at the end", {u'a', 0xd83d}, "61 3f"},
    {"wrong order", {0xde00, 0xd83d}, "3f 3f"},
    {"high before a pair", {0xd83d, 0xd83d, 0xde00}, "3f f0 9f 98 80"},
    {"byte order mark", u"\ufeffa"s, "ef bb bf 61"},
    {"nul inside", u"a\0b"s, "61 00 62"},
};

const EncodingRow latin[] = {
    {"nothing", u""s, ""},
    {"ascii", u"a~"s, "61 7e"},
    {"upper half", u"\u0080\u00e9\u00ff"s, "80 e9 ff"},
    {"above", u"\u0100"s, "3f"},
    {"low byte of zero", u"a\u0400b"s, "61 3f 62"},
    {"pair", u"\U0001f600"s, "3f 3f"},
    {"nul inside", u"a\0b"s, "61 00 62"},
};

struct CompareRow
{
    const char* name;
    QString a;
    QString b;
    int order;
};

const CompareRow comparing[] = {
    {"null and null", QString(), QString(), 0},
    {"null and empty", QString(), made(u""), 1},
    {"empty and empty", made(u""), made(u""), 0},
    {"null and a text", QString(), made(u"a"), 1},
    {"empty and a text", made(u""), made(u"a"), -1},
    {"equal", made(u"Profile"), made(u"Profile"), 0},
    {"case", made(u"Profile"), made(u"profile"), -1},
    {"far apart", made(u"a"), made(u"z"), -1},
    {"beginning of the other", made(u"Profile1"), made(u"Profile10"), -1},
    {"pair before a single unit", made(u"\U0001f600"), made(u"\uffee"), -1},
    {"composed and decomposed", made(u"\u00e9"), made(u"e\u0301"), 1},
    {"nul counts", made(u"a\0"s), made(u"a"), 1},
};

} // namespace

TEST(FromUtf8, DecodesEachRow)
{
    for (const Utf8Row& row : decoding) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(row.text, shown(fromUtf8(row.bytes.data(), static_cast<int>(row.bytes.size()))));
    }
}

TEST(FromUtf8, EndsAtTheFirstNulWithoutASize)
{
    EXPECT_EQ(shown(fromUtf8("caf\xc3\xa9\0x")), "caf<00e9>");
    EXPECT_EQ(shown(fromUtf8("a\0b", -1)), "a");
}

TEST(FromUtf8, KeepsEmptyAndNullApart)
{
    EXPECT_EQ(shown(fromUtf8("", -1)), "");
    EXPECT_EQ(shown(fromUtf8("abc", 0)), "");
    EXPECT_EQ(shown(fromUtf8(nullptr)), "NULL");
    EXPECT_EQ(shown(fromUtf8(nullptr, 0)), "NULL");
    EXPECT_EQ(shown(fromUtf8(nullptr, 3)), "NULL");
}

TEST(FromUtf8, ReadsNothingBehindTheSize)
{
    EXPECT_EQ(shown(fromUtf8("\xe2\x82\xac", 2)), "<fffd><fffd>");
}

TEST(Utf8, EncodesEachRow)
{
    for (const EncodingRow& row : encoding) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(row.bytes, hexadecimal(utf8(made(row.text))));
    }
}

TEST(Utf8, GivesNoBytesForANullText)
{
    EXPECT_EQ(utf8(QString()), "");
}

TEST(Latin1, EncodesEachRow)
{
    for (const EncodingRow& row : latin) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(row.bytes, hexadecimal(latin1(made(row.text))));
    }
}

TEST(Latin1, GivesNoBytesForANullText)
{
    EXPECT_EQ(latin1(QString()), "");
}

TEST(Trimmed, DropsEachBlankOnBothSides)
{
    const char16_t blanks[] = {0x0009, 0x000a, 0x000b, 0x000c, 0x000d, 0x0020, 0x00a0, 0x1680,
                               0x2000, 0x2001, 0x2002, 0x2003, 0x2004, 0x2005, 0x2006, 0x2007,
                               0x2008, 0x2009, 0x200a, 0x200b, 0x2028, 0x2029, 0x202f, 0x3000};
    for (char16_t blank : blanks) {
        SCOPED_TRACE(static_cast<unsigned int>(blank));
        EXPECT_EQ(shown(trimmed(made({blank, u'x', blank, blank}))), "x");
    }
}

TEST(Trimmed, KeepsWhatIsNoBlank)
{
    const char16_t others[] = {0x0000, 0x0008, 0x000e, 0x001f, 0x0085,
                               0x180e, 0x200c, 0x205f, 0x2060, 0xfeff};
    for (char16_t other : others) {
        SCOPED_TRACE(static_cast<unsigned int>(other));
        EXPECT_EQ(static_cast<int>(trimmed(made({other, u'x', other})).length()), 3);
    }
}

TEST(Trimmed, KeepsBlanksInside)
{
    EXPECT_EQ(shown(trimmed(made(u" a \u00a0b\t"))), "a <00a0>b");
}

TEST(Trimmed, LeavesAnEmptyTextOfBlanksOnly)
{
    EXPECT_EQ(shown(trimmed(made(u" \t\u3000"))), "");
    EXPECT_EQ(shown(trimmed(made(u""))), "");
}

TEST(Trimmed, KeepsANullTextNull)
{
    EXPECT_EQ(shown(trimmed(QString())), "NULL");
}

TEST(Compare, OrdersEachRowAndItsReverse)
{
    for (const CompareRow& row : comparing) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(row.order, compare(row.a, row.b));
        EXPECT_EQ(-row.order, compare(row.b, row.a));
    }
}

TEST(Units, GoThereAndBackUnchanged)
{
    const std::u16string units = {u'a', 0x0000, 0x00e9, 0xd83d, 0xde00, 0xdc00, 0xffff};
    EXPECT_EQ(shown(textOf(units)), "a<0000><00e9><d83d><de00><dc00><ffff>");
    EXPECT_EQ(units, unitsOf(made(units)));
}

TEST(Units, OfANullTextAreNoneAndGiveAnEmptyText)
{
    EXPECT_EQ(unitsOf(QString()), u"");
    EXPECT_EQ(shown(textOf(u"")), "");
}
