#include "support/number.h"

#include <climits>

#include <gtest/gtest.h>

#include "support/notation.h"

using namespace support;

namespace {

// What each of the two calls makes of a text; `fail` where it is no number to that call.
constexpr long long fail = LLONG_MIN;

struct Row
{
    const char* name;
    std::u16string text;
    long long toInt;
    long long toUInt;
};

const Row table[] = {
    {"one digit", u"5"s, 5, 5},
    {"zero", u"0"s, 0, 0},
    {"leading zeros", u"007"s, 7, 7},
    {"no octal", u"010"s, 10, 10},
    {"plus", u"+5"s, 5, 5},
    {"blank before", u" 5"s, 5, 5},
    {"blank behind", u"5 "s, 5, 5},
    {"tab around", u"\t5\t"s, 5, 5},
    {"newline around", u"\n5\n"s, 5, 5},
    {"vertical tab around", u"\v5\v"s, 5, 5},
    {"form feed around", u"\f5\f"s, 5, 5},
    {"34 zeros", u"00000000000000000000000000000000005"s, 5, 5},
    {"minus", u"-5"s, -5, fail},
    {"minus zero", u"-0"s, 0, fail},
    {"two minus", u"--5"s, fail, fail},
    {"plus minus", u"+-5"s, fail, fail},
    {"blank behind the sign", u"- 5"s, fail, fail},
    {"minus alone", u"-"s, fail, fail},
    {"plus alone", u"+"s, fail, fail},
    {"empty", u""s, fail, fail},
    {"blank only", u" "s, fail, fail},
    {"blank inside", u"5 5"s, fail, fail},
    {"letter behind", u"5a"s, fail, fail},
    {"hexadecimal", u"0x10"s, fail, fail},
    {"exponent", u"1e3"s, fail, fail},
    {"fraction", u"5.0"s, fail, fail},
    {"grouping", u"1,000"s, fail, fail},
    {"next line before", u"\u00855"s, fail, fail},
    {"byte order mark before", u"\ufeff5"s, fail, fail},
    {"minus sign of typography", u"\u22125"s, fail, fail},
    {"low byte of a digit", u"\u0135"s, fail, fail},
    {"no-break space around", u"\u00a05\u00a0"s, 5, 5},
    {"ogham blank around", u"\u16805\u1680"s, 5, 5},
    {"em space around", u"\u20035\u2003"s, 5, 5},
    {"zero width space around", u"\u200b5\u200b"s, 5, 5},
    {"line separator around", u"\u20285\u2028"s, 5, 5},
    {"ideographic space around", u"\u30005\u3000"s, 5, 5},
    {"nul behind", u"5\0"s, fail, fail},
    {"nul inside",
     u"5\0"
     u"6"s,
     fail, fail},
    {"largest int", u"2147483647"s, 2147483647, 2147483647},
    {"largest int and one", u"2147483648"s, fail, 2147483648},
    {"smallest int", u"-2147483648"s, -2147483648LL, fail},
    {"smallest int less one", u"-2147483649"s, fail, fail},
    {"largest unsigned", u"4294967295"s, fail, 4294967295},
    {"2^32", u"4294967296"s, fail, fail},
    {"2^32 and three", u"4294967299"s, fail, fail},
    {"wraps to a small number", u"429496729500"s, fail, fail},
    {"largest of 64 bits", u"9223372036854775807"s, fail, fail},
    {"2^63", u"9223372036854775808"s, fail, fail},
    {"2^64", u"18446744073709551616"s, fail, fail},
    {"20 nines", u"99999999999999999999"s, fail, fail},
    {"minus 20 nines", u"-99999999999999999999"s, fail, fail},
    {"arabic digit", u"\u0665"s, 5, 5},
    {"wide digit", u"\uff15"s, 5, 5},
    {"mixed scripts", u"1\u0662\uff13"s, 123, 123},
    {"minus and arabic", u"-\u0665"s, -5, fail},
};

// The zeros of the scripts whose digits count.
const char16_t zeros[] = {0x0030, 0x0660, 0x06f0, 0x0966, 0x09e6, 0x0a66, 0x0ae6, 0x0b66,
                          0x0c66, 0x0ce6, 0x0d66, 0x0e50, 0x0ed0, 0x0f20, 0xff10};

// Digits that do not count: Myanmar, Ethiopic, Khmer, Mongolian; and the neighbours of those that
// do.
const char16_t noDigits[] = {0x1045, 0x136d, 0x17e5, 0x1815, 0x002f, 0x003a, 0x065f, 0x066a,
                             0x0be6, 0x0bf0, 0x0e4f, 0x0e5a, 0xff0f, 0xff1a, 0x2165, 0x00b2};

} // namespace

TEST(ToInt32, ReadsEachRow)
{
    for (const Row& row : table) {
        SCOPED_TRACE(row.name);
        bool ok = row.toInt == fail;
        EXPECT_EQ(row.toInt == fail ? 0 : row.toInt, toInt32(made(row.text), &ok));
        EXPECT_EQ(row.toInt != fail, ok);
    }
}

TEST(ToUInt32, ReadsEachRow)
{
    for (const Row& row : table) {
        SCOPED_TRACE(row.name);
        bool ok = row.toUInt == fail;
        EXPECT_EQ(row.toUInt == fail ? 0 : row.toUInt, toUInt32(made(row.text), &ok));
        EXPECT_EQ(row.toUInt != fail, ok);
    }
}

TEST(ToInt32, ReadsTheTenDigitsOfEachScript)
{
    for (char16_t zero : zeros) {
        SCOPED_TRACE(static_cast<unsigned int>(zero));
        std::u16string digits;
        for (int i = 1; i <= 9; ++i)
            digits += static_cast<char16_t>(zero + i);
        EXPECT_EQ(toInt32(made(digits)), 123456789);
        EXPECT_EQ(toInt32(made({static_cast<char16_t>(zero + 1), zero})), 10);
    }
}

TEST(ToInt32, ReadsOneToNineOfTamil)
{
    EXPECT_EQ(toInt32(made(u"\u0be7\u0bef")), 19);
}

TEST(ToInt32, RefusesWhatIsNoDigit)
{
    for (char16_t unit : noDigits) {
        SCOPED_TRACE(static_cast<unsigned int>(unit));
        bool ok = true;
        EXPECT_EQ(toInt32(made({u'1', unit}), &ok), 0);
        EXPECT_FALSE(ok);
        EXPECT_EQ(toUInt32(made({unit}), &ok), 0u);
        EXPECT_FALSE(ok);
    }
}

TEST(ToInt32, RefusesANullText)
{
    bool ok = true;
    EXPECT_EQ(toInt32(QString(), &ok), 0);
    EXPECT_FALSE(ok);
    ok = true;
    EXPECT_EQ(toUInt32(QString(), &ok), 0u);
    EXPECT_FALSE(ok);
}

TEST(ToInt32, DoesWithoutAPlaceForTheOutcome)
{
    EXPECT_EQ(toInt32(made(u"-12"), nullptr), -12);
    EXPECT_EQ(toInt32(made(u"x"), nullptr), 0);
    EXPECT_EQ(toUInt32(made(u"12"), nullptr), 12u);
}

TEST(ToInt32, ReadsALongRunOfZeros)
{
    EXPECT_EQ(toInt32(made(std::u16string(4000, u'0') + u"4")), 4);
}
