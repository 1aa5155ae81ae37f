// The table of fields against the record: nothing left out, nothing twice.
#include <array>
#include <cstring>
#include <set>
#include <string>

#include <gtest/gtest.h>

#include "profile/fields.h"

namespace {

using ctl::Field;

// The bits of the field within byte number `i` of the record.
unsigned bitsIn(const Field& field, std::size_t i)
{
    if (i < field.offset || i >= field.offset + field.width)
        return 0;
    return field.mask == 0 ? 0xFF : field.mask >> (8 * (i - field.offset)) & 0xFF;
}

TEST(Fields, CoverEveryBitOfTheRecordOnce)
{
    for (std::size_t i = 0; i < sizeof(NetworkProfile); ++i) {
        unsigned covered = 0;
        for (const Field& field : ctl::fields()) {
            EXPECT_EQ(covered & bitsIn(field, i), 0U) << field.name << " overlaps at byte " << i;
            covered |= bitsIn(field, i);
        }
        EXPECT_EQ(covered, 0xFFU) << "byte " << i;
    }
}

TEST(Fields, HaveNamesOfTheirOwn)
{
    std::set<std::string> names;
    for (const Field& field : ctl::fields())
        EXPECT_TRUE(names.insert(field.name).second) << field.name;
}

TEST(Fields, AreFoundByNameAndNothingElseIs)
{
    ASSERT_NE(ctl::findField("csd-speed"), nullptr);
    EXPECT_EQ(ctl::findField("csd-speed")->offset, 571U);
    EXPECT_EQ(ctl::findField("csd-spee"), nullptr);
    EXPECT_EQ(ctl::findField(""), nullptr);
}

struct Place
{
    const char* field;
    std::size_t offset, width;
};

// Written down from the stored format, not from the table.
const Place places[] = {
    {"preference", 4, 4},   {"apn", 8, 100},           {"user", 108, 100},
    {"password", 208, 100}, {"dns1", 312, 4},          {"dns2", 316, 4},
    {"timeout", 320, 2},    {"qos", 380, 1},           {"csd-number", 381, 44},
    {"csd-user", 425, 64},  {"csd-password", 489, 64}, {"csd-dns1", 560, 4},
    {"csd-dns2", 564, 4},   {"csd-timeout", 568, 2},   {"csd-speed", 571, 1},
    {"proxy1", 760, 100},   {"port1", 860, 2},         {"domain1", 862, 100},
    {"proxy2", 963, 100},   {"port2", 1064, 2},        {"domain2", 1066, 100},
    {"stored-mark", 1, 1},
};

TEST(Fields, StandWhereTheStoredFormatHasThem)
{
    for (const Place& place : places) {
        const Field* field = ctl::findField(place.field);
        ASSERT_NE(field, nullptr) << place.field;
        EXPECT_EQ(field->offset, place.offset) << place.field;
        EXPECT_EQ(field->width, place.width) << place.field;
    }
}

TEST(Fields, SettingANumberLeavesTheOtherBitsOfItsBytes)
{
    NetworkProfile record;
    std::memset(&record, 0xFF, sizeof record);
    ctl::setNumber(*ctl::findField("preference"), 1, record);
    EXPECT_EQ(record.flags, 0xFFFFF1FFU);
    EXPECT_EQ(record.gprsApn[0], '\xFF');
    EXPECT_EQ(record.kept2[1], 0xFF);
}

TEST(Fields, NumbersAreLittleEndianInTheRecord)
{
    NetworkProfile record = {};
    ctl::setNumber(*ctl::findField("dns1"), 0x0A010203, record);
    const unsigned char expected[] = {0x03, 0x02, 0x01, 0x0A};
    EXPECT_EQ(std::memcmp(reinterpret_cast<const char*>(&record) + 312, expected, 4), 0);
    EXPECT_EQ(ctl::numberOf(*ctl::findField("dns1"), record), 0x0A010203U);
}

} // namespace
