#include <gtest/gtest.h>

#include "network/store/store_world.h"

namespace {

struct NameCase
{
    const char* label;
    std::string name;
    bool isGood;
};

void PrintTo(const NameCase& row, std::ostream* out)
{
    *out << row.label;
}

const NameCase names[] = {
    {"OneLetter", "a", true},
    {"BlankAlone", " ", true},
    {"DotInside", "a.b", true},
    {"Dash", "-rf", true},
    {"SixtyThreeBytes", std::string(63, 'n'), true},
    {"TwoByteSequence", "Gr\xC3\xBC\xC3\x9F", true},
    {"SmallestTwoByteAfterControls", "\xC2\xA0", true},
    {"Chinese", "\xE7\xA7\xBB\xE5\x8A\xA8", true},
    {"LastBeforeSurrogates", "\xED\x9F\xBF", true},
    {"FirstAfterSurrogates", "\xEE\x80\x80", true},
    {"FourBytes", "\xF0\x9F\x93\xB6", true},
    {"LargestCodePoint", "\xF4\x8F\xBF\xBF", true},
    {"SixtyThreeBytesOfChinese",
     "\xE7\xA7\xBB\xE7\xA7\xBB\xE7\xA7\xBB\xE7\xA7\xBB\xE7\xA7\xBB\xE7\xA7\xBB\xE7\xA7\xBB"
     "\xE7\xA7\xBB\xE7\xA7\xBB\xE7\xA7\xBB\xE7\xA7\xBB\xE7\xA7\xBB\xE7\xA7\xBB\xE7\xA7\xBB"
     "\xE7\xA7\xBB\xE7\xA7\xBB\xE7\xA7\xBB\xE7\xA7\xBB\xE7\xA7\xBB\xE7\xA7\xBB\xE7\xA7\xBB",
     true},

    {"Empty", "", false},
    {"SixtyFourBytes", std::string(64, 'n'), false},
    {"VeryLong", std::string(100000, 'n'), false},
    {"SixtyFourBytesByTheLastCharacter", std::string(62, 'n') + "\xC3\xBC", false},
    {"Slash", "a/b", false},
    {"SlashFirst", "/etc", false},
    {"SlashLast", "a/", false},
    {"Dot", ".", false},
    {"DotDot", "..", false},
    {"DotDotSlash", "../Other", false},
    {"LeadingDot", ".hidden", false},
    {"Pending", ".pending", false},
    {"Newline", "a\nb", false},
    {"Tabulator", "a\tb", false},
    {"Escape", "\x1B[31m", false},
    {"FirstControl", "\x01", false},
    {"LastControl", "\x1F", false},
    {"Delete", "\x7F", false},
    {"FirstC1Control", "\xC2\x80", false},
    {"LastC1Control", "\xC2\x9F", false},
    {"LoneContinuation", "a\x80", false},
    {"TruncatedTwoByte", "a\xC3", false},
    {"TruncatedThreeByte", "a\xE7\xA7", false},
    {"TruncatedFourByte", "a\xF0\x9F\x93", false},
    {"InterruptedThreeByte", "\xE7\x41\xBB", false},
    {"OverlongSlash", "\xC0\xAF", false},
    {"OverlongTwoByte", "\xC1\xBF", false},
    {"OverlongThreeByte", "\xE0\x9F\xBF", false},
    {"OverlongFourByte", "\xF0\x8F\xBF\xBF", false},
    {"FirstSurrogate", "\xED\xA0\x80", false},
    {"LastSurrogate", "\xED\xBF\xBF", false},
    {"BeyondUnicode", "\xF4\x90\x80\x80", false},
    {"FiveByteLead", "\xF8\x88\x80\x80\x80", false},
    {"Byte0xFF", "\xFF", false},
    {"Latin1", "Gr\xFC\xDF", false},
};

class ProfileName : public testing::TestWithParam<NameCase>
{
protected:
    StoreWorld world{StoreWorld::On::Memory};
    NetworkProfile record = uniformRecord(7);
    std::string name = GetParam().name;
};

using GoodProfileName = ProfileName;
using BadProfileName = ProfileName;

TEST_P(GoodProfileName, IsStoredListedReadRenamedAndDeleted)
{
    ASSERT_EQ(NAPI_CreateProfile(name.c_str(), &record, 0, 0), NAPI_OK);
    EXPECT_EQ(storedProfiles(), (Profiles{{name, 7}}));
    EXPECT_EQ(NAPI_IsProfileValid(name.c_str()), NAPI_OK);
    EXPECT_EQ(napihost::renameProfile(name.c_str(), "Other"), NAPI_OK);
    EXPECT_EQ(napihost::renameProfile("Other", name.c_str()), NAPI_OK);
    EXPECT_EQ(napihost::deleteProfile(name.c_str()), NAPI_OK);
    EXPECT_EQ(storedProfiles(), Profiles{});
}

TEST_P(BadProfileName, IsRefusedByEveryCallAndTouchesNothing)
{
    EXPECT_EQ(NAPI_CreateProfile(name.c_str(), &record, 0, 0), NAPI_ERR_NAME);
    EXPECT_EQ(entriesOf(world.root()), std::vector<std::string>{});
    world.reset({{"Kept", 9}});
    EXPECT_EQ(NAPI_CreateProfile(name.c_str(), &record, 0, 0), NAPI_ERR_NAME);
    EXPECT_EQ(NAPI_ModifyProfile(name.c_str(), &record, 0, 0), NAPI_ERR_NAME);
    EXPECT_EQ(NAPI_ReadProfile(name.c_str(), &record, 0, 0), NAPI_ERR_NAME);
    EXPECT_EQ(NAPI_IsProfileValid(name.c_str()), NAPI_ERR_NAME);
    EXPECT_EQ(napihost::deleteProfile(name.c_str()), NAPI_ERR_NAME);
    EXPECT_EQ(napihost::renameProfile(name.c_str(), "Other"), NAPI_ERR_NAME);
    EXPECT_EQ(napihost::renameProfile("Kept", name.c_str()), NAPI_ERR_NAME);
    EXPECT_EQ(byteOf(record), 7);
    EXPECT_EQ(storedProfiles(), (Profiles{{"Kept", 9}}));
    EXPECT_EQ(entriesOf(world.profiles()), std::vector<std::string>{"Kept"});
}

std::vector<NameCase> namesThatAre(bool good)
{
    std::vector<NameCase> rows;
    for (const NameCase& row : names)
        if (row.isGood == good)
            rows.push_back(row);
    return rows;
}

std::string labelOf(const testing::TestParamInfo<NameCase>& row)
{
    return row.param.label;
}

INSTANTIATE_TEST_SUITE_P(Names, GoodProfileName, testing::ValuesIn(namesThatAre(true)), labelOf);
INSTANTIATE_TEST_SUITE_P(Names, BadProfileName, testing::ValuesIn(namesThatAre(false)), labelOf);

} // namespace
