#include "support/ipv4.h"

#include <gtest/gtest.h>

#include "support/notation.h"

using namespace support;

namespace {

struct Row
{
    const char* name;
    std::u16string text;
    unsigned int address;
};

const Row addresses[] = {
    {"four parts", u"1.2.3.4"s, 0x01020304},
    {"blanks around", u" 1.2.3.4 "s, 0x01020304},
    {"tab around", u"\t1.2.3.4\t"s, 0x01020304},
    {"newline around", u"\n1.2.3.4\n"s, 0x01020304},
    {"no-break space around", u"\u00a01.2.3.4\u00a0"s, 0x01020304},
    {"zero", u"0.0.0.0"s, 0},
    {"all ones", u"255.255.255.255"s, 0xffffffff},
    {"leading zero", u"01.2.3.4"s, 0x01020304},
    {"leading zeros", u"0001.2.3.4"s, 0x01020304},
    {"plus", u"+1.2.3.4"s, 0x01020304},
    {"blank before the second part", u"1. 2.3.4"s, 0x01020304},
    {"blank before the last part", u"1.2.3. 4"s, 0x01020304},
    {"blank behind the third part", u"1.2.3 .4"s, 0x01020304},
    {"two dots", u"1..2.3.4"s, 0x01020304},
    {"dot at the end", u"1.2.3.4."s, 0x01020304},
    {"dot at the beginning", u".1.2.3.4"s, 0x01020304},
    {"dot and blank at the end", u"1.2.3.4. "s, 0x01020304},
    {"eight behind a zero", u"08.2.3.4"s, 0x08020304},
    {"arabic digit", u"1.2.3.\u0664"s, 0x01020304},
    {"wide digit", u"\uff11.2.3.4"s, 0x01020304},
    {"no octal", u"010.2.3.4"s, 0x0a020304},
    {"4000 zeros", u"1.2.3." + std::u16string(4000, u'0') + u"4", 0x01020304},
};

const Row others[] = {
    {"octal above 255", u"1.2.3.0377"s, 0},
    {"two parts", u"127.1"s, 0},
    {"one part", u"1"s, 0},
    {"three parts", u"1.2.3"s, 0},
    {"three parts, the last wide", u"1.2.65535"s, 0},
    {"one number", u"4294967295"s, 0},
    {"hexadecimal part", u"0x1.2.3.4"s, 0},
    {"hexadecimal number", u"0x7f000001"s, 0},
    {"hexadecimal last part", u"1.2.3.0x10"s, 0},
    {"IPv6 loopback", u"::1"s, 0},
    {"IPv6 any", u"::"s, 0},
    {"IPv4 in IPv6", u"::ffff:1.2.3.4"s, 0},
    {"IPv6 with a scope", u"fe80::1%lo"s, 0},
    {"IPv6", u"1:2:3:4:5:6:7:8"s, 0},
    {"nul behind", u"1.2.3.4\0"s, 0},
    {"nul and a letter behind", u"1.2.3.4\0x"s, 0},
    {"three parts, two dots", u"1..2.3"s, 0},
    {"two parts, three dots", u"1...4"s, 0},
    {"empty", u""s, 0},
    {"blank", u" "s, 0},
    {"dots", u"..."s, 0},
    {"nothing behind the last dot", u"1.2.3."s, 0},
    {"five parts", u"1.2.3.4.5"s, 0},
    {"first part above 255", u"256.1.1.1"s, 0},
    {"last part above 255", u"1.2.3.256"s, 0},
    {"minus", u"-1.2.3.4"s, 0},
    {"minus zero", u"1.2.3.-0"s, 0},
    {"prefix length", u"1.2.3.4/24"s, 0},
    {"port", u"1.2.3.4:80"s, 0},
    {"letter behind", u"1.2.3.4a"s, 0},
    {"commas", u"1,2,3,4"s, 0},
    {"host name", u"localhost"s, 0},
    {"word", u"any"s, 0},
    {"brackets", u"[::1]"s, 0},
    {"2^32", u"4294967296"s, 0},
    {"part above 2^32", u"1.2.3.4294967300"s, 0},
    {"wide full stop", u"1\uff0e2.3.4"s, 0},
    {"low byte of a digit", u"1.2.3.\u0134"s, 0},
    {"5000 ones", std::u16string(5000, u'1'), 0},
    {"5000 dots", std::u16string(5000, u'.'), 0},
};

} // namespace

TEST(Ipv4FromText, ReadsEachAddress)
{
    for (const Row& row : addresses) {
        SCOPED_TRACE(row.name);
        unsigned int address = ~row.address;
        EXPECT_TRUE(ipv4FromText(made(row.text), &address));
        EXPECT_EQ(row.address, address);
    }
}

TEST(Ipv4FromText, RefusesEachOtherTextAndLeavesTheNumber)
{
    for (const Row& row : others) {
        SCOPED_TRACE(row.name);
        unsigned int address = 0xdeadbeef;
        EXPECT_FALSE(ipv4FromText(made(row.text), &address));
        EXPECT_EQ(address, 0xdeadbeefu);
    }
}

TEST(Ipv4FromText, RefusesANullText)
{
    unsigned int address = 0xdeadbeef;
    EXPECT_FALSE(ipv4FromText(QString(), &address));
    EXPECT_EQ(address, 0xdeadbeefu);
}

TEST(Ipv4FromText, RefusesEachBeginningOfAnAddress)
{
    const std::u16string whole = u"10.20.30.40";
    for (std::size_t length = 0; length + 2 < whole.size(); ++length) {
        SCOPED_TRACE(length);
        unsigned int address = 0xdeadbeef;
        EXPECT_FALSE(ipv4FromText(made(whole.substr(0, length)), &address));
        EXPECT_EQ(address, 0xdeadbeefu);
    }
}

TEST(Ipv4ToText, PutsTheMostSignificantByteFirst)
{
    EXPECT_EQ(shown(ipv4ToText(0x01020304)), "1.2.3.4");
    EXPECT_EQ(shown(ipv4ToText(0xc0a80001)), "192.168.0.1");
    EXPECT_EQ(shown(ipv4ToText(0)), "0.0.0.0");
    EXPECT_EQ(shown(ipv4ToText(0xffffffff)), "255.255.255.255");
    EXPECT_EQ(shown(ipv4ToText(0x0a00c809)), "10.0.200.9");
}
