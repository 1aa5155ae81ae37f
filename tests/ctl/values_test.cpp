// Values as texts, there and back.
#include <cstdlib>
#include <cstring>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "base/json_document.h"
#include "failure.h"
#include "profile/record.h"
#include "profile/values.h"

namespace {

using ctl::Field;

struct Row
{
    const char* name;
    const char* field;
    const char* text;
    const char* stored; // what valueText() gives afterwards; null when the text is refused
};

const Row rows[] = {
    {"an address", "dns1", "10.1.2.3", "10.1.2.3"},
    {"leading zeros are decimal", "dns1", "010.001.002.08", "10.1.2.8"},
    {"many leading zeros", "dns1", "0000000000010.1.2.3", "10.1.2.3"},
    {"the largest address", "dns2", "255.255.255.255", "255.255.255.255"},
    {"no address", "csd-dns1", "", ""},
    {"the zero address is none", "csd-dns1", "0.0.0.0", ""},
    {"a part of 256", "dns1", "10.1.2.256", nullptr},
    {"a part that overflows", "dns1", "10.1.2.4294967296", nullptr},
    {"a part that overflows 64 bits", "dns1", "10.1.2.18446744073709551617", nullptr},
    {"three parts", "dns1", "10.1.2", nullptr},
    {"five parts", "dns1", "10.1.2.3.4", nullptr},
    {"one number", "dns1", "7", nullptr},
    {"an empty part", "dns1", "10..2.3", nullptr},
    {"a dot at the end", "dns1", "10.1.2.", nullptr},
    {"a blank", "dns1", "10.1.2.3 ", nullptr},
    {"a sign", "dns1", "+10.1.2.3", nullptr},
    {"hexadecimal", "dns1", "0x0a.1.2.3", nullptr},
    {"IPv6", "dns1", "::1", nullptr},
    {"digits of another script", "dns1", "10.1.2.\xD9\xA3", nullptr},
    {"minutes", "timeout", "15", "15"},
    {"off", "timeout", "off", "0"},
    {"the most minutes", "csd-timeout", "65535", "65535"},
    {"one minute too many", "csd-timeout", "65536", nullptr},
    {"no minutes", "timeout", "", nullptr},
    {"a negative time", "timeout", "-1", nullptr},
    {"a fraction", "timeout", "1.5", nullptr},
    {"a port", "port1", "8080", "8080"},
    {"the last port", "port2", "65535", "65535"},
    {"a port beyond the last", "port2", "65536", nullptr},
    {"a port with a blank", "port1", " 7", nullptr},
    {"no preference", "preference", "unset", "unset"},
    {"WiFi only", "preference", "wifi-only", "wifi-only"},
    {"a named code by its number", "preference", "code-2", "wifi-then-cellular"},
    {"a code without a name", "preference", "code-15", "code-15"},
    {"a code beyond its bits", "preference", "code-16", nullptr},
    {"a code without a number", "preference", "code-", nullptr},
    {"a name in capitals", "preference", "WIFI-ONLY", nullptr},
    {"modem speed", "csd-speed", "modem-14400", "modem-14400"},
    {"ISDN speed", "csd-speed", "isdn-2400", "isdn-2400"},
    {"speed code", "csd-speed", "code-255", "code-255"},
    {"speed code too large", "csd-speed", "code-256", nullptr},
    {"policy", "qos", "voice", "voice"},
    {"a text", "apn", "internet.example", "internet.example"},
    {"no text", "apn", "", ""},
    {"wide characters", "user", "\xE7\xBD\x91\xE7\xBB\x9C", "\xE7\xBD\x91\xE7\xBB\x9C"},
    {"blanks at both ends", "domain1", " a ", " a "},
    {"a newline", "apn", "a\nb", nullptr},
    {"a C1 control character", "apn", "a\xC2\x9B", nullptr},
    {"broken UTF-8", "apn", "\xFF", nullptr},
    {"overlong UTF-8", "apn", "\xC0\xAF", nullptr},
};

class Values : public testing::TestWithParam<Row>
{};

TEST_P(Values, AreStoredAsTheyReadOrRefused)
{
    const Row& row = GetParam();
    const Field& field = *ctl::findField(row.field);
    NetworkProfile record;
    std::memset(&record, 'z', sizeof record);
    const NetworkProfile before = record;
    const auto problem = ctl::parseValue(field, row.text, record);
    EXPECT_EQ(problem.has_value(), row.stored == nullptr) << row.name;
    if (row.stored)
        EXPECT_EQ(ctl::valueText(field, record), row.stored) << row.name;
    else
        EXPECT_EQ(std::memcmp(&record, &before, sizeof record), 0) << row.name;
}

INSTANTIATE_TEST_SUITE_P(Table, Values, testing::ValuesIn(rows));

TEST(ValuesOfText, FillTheirFieldWithoutATerminator)
{
    const Field& field = *ctl::findField("csd-number");
    NetworkProfile record = {};
    record.csdUserName[0] = 'u';
    EXPECT_FALSE(ctl::parseValue(field, std::string(44, '1'), record));
    EXPECT_EQ(ctl::valueText(field, record), std::string(44, '1'));
    EXPECT_EQ(record.csdUserName[0], 'u');
    EXPECT_TRUE(ctl::parseValue(field, std::string(45, '2'), record));
    EXPECT_EQ(ctl::valueText(field, record), std::string(44, '1'));
}

TEST(ValuesOfText, LeaveNothingOfALongerTextBehind)
{
    const Field& field = *ctl::findField("apn");
    NetworkProfile record = {};
    EXPECT_FALSE(ctl::parseValue(field, "a long access point name", record));
    EXPECT_FALSE(ctl::parseValue(field, "short", record));
    NetworkProfile expected = {};
    std::memcpy(expected.gprsApn, "short", 5);
    EXPECT_EQ(std::memcmp(&record, &expected, sizeof record), 0);
}

// VORN_TEST_SEED replays a run.
unsigned seed()
{
    const char* given = std::getenv("VORN_TEST_SEED");
    return given ? static_cast<unsigned>(std::strtoul(given, nullptr, 10)) : std::random_device()();
}

NetworkProfile afterRoundTrip(const NetworkProfile& record)
{
    const std::string text = ctl::jsonText(ctl::exported("Name", record, true), 2);
    base::JsonDocument document = base::JsonDocument::parse(text, "file");
    std::vector<base::JsonProblem> problems;
    const NetworkProfile back = ctl::imported(document.root().at("fields"), &problems);
    for (const base::JsonProblem& problem : problems)
        ADD_FAILURE() << base::describe("file", problem);
    return back;
}

TEST(Exchange, KeepsEveryBitOfAnyRecord)
{
    const unsigned used = seed();
    std::mt19937 random(used);
    for (int run = 0; run < 500; ++run) {
        NetworkProfile record;
        auto* bytes = reinterpret_cast<unsigned char*>(&record);
        // Zeros and letters among the bytes, so that fields are texts, empty, and neither.
        for (std::size_t i = 0; i < sizeof record; ++i)
            bytes[i] = static_cast<unsigned char>(
                run % 3 == 0 ? random() : random() % 2 * (97 + random() % 26));
        const NetworkProfile back = afterRoundTrip(record);
        ASSERT_EQ(std::memcmp(&back, &record, sizeof record), 0) << "VORN_TEST_SEED=" << used;
    }
}

TEST(Exchange, LeavesPasswordsOutUnlessTheyAreAskedFor)
{
    NetworkProfile record = {};
    std::strcpy(record.gprsPassword, "sesame");
    std::strcpy(record.csdPassword, "mustard");
    const std::string without = ctl::jsonText(ctl::exported("Name", record, false), 2) +
                                ctl::jsonText(ctl::describe("Name", record, false), 2);
    EXPECT_EQ(without.find("sesame"), std::string::npos);
    EXPECT_EQ(without.find("mustard"), std::string::npos);
    EXPECT_NE(ctl::jsonText(ctl::exported("Name", record, true), 2).find("sesame"),
              std::string::npos);
}

} // namespace
