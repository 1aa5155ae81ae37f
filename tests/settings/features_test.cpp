#include "setuputility.h"

#include <algorithm>

#include "settings/settings_host.h"
#include "settings/settings_root.h"

namespace {

struct Row
{
    const char* name;
    const char* text; // of the file; null for none
    int available;
    const char* said; // after the file's name
};

void PrintTo(const Row& row, std::ostream* out)
{
    *out << row.name;
}

class WifiFeature : public SettingsRoot, public testing::WithParamInterface<Row>
{};

TEST_P(WifiFeature, IsAvailableWhenTheFileSaysSo)
{
    if (GetParam().text)
        write(features(), GetParam().text);
    testing::internal::CaptureStderr();
    EXPECT_EQ(SETUP_Utility().isFeatureAvailable(431) != 0, GetParam().available != 0);
    EXPECT_EQ(SETUP_Utility().isFeatureAvailable(431) != 0, GetParam().available != 0);
    const std::string said = testing::internal::GetCapturedStderr();
    const std::string expected = *GetParam().said ? features() + GetParam().said : "";
    EXPECT_EQ(said.substr(0, expected.size()), expected);
    EXPECT_EQ(std::count(said.begin(), said.end(), '\n'), *GetParam().said ? 1 : 0) << said;
}

INSTANTIATE_TEST_SUITE_P(
    Files, WifiFeature,
    testing::Values(
        Row{"NoFile", nullptr, 0, ""}, Row{"NotNamed", "{}", 0, ""},
        Row{"True", "{\"431\": true}", 1, ""}, Row{"False", "{\"431\": false}", 0, ""},
        Row{"OnlyAnotherOne", "{\"430\": true, \"4310\": true}", 0, ""},
        Row{"LeadingZero", "{\"0431\": true}", 0, ""},
        Row{"Number", "{\n\"431\": 1}", 0,
            ":2: 431: expected true or false, found the number 1; using false instead\n"},
        Row{"AnotherWrongOne", "{\"431\": true, \"432\": 1}", 1, ""},
        Row{"NoObject", "[431]", 0,
            ":1: expected an object, found an array; using no features instead\n"},
        Row{"Broken", "{\n\n\"431\": yes}", 0, ":3: expected JSON, found "}),
    [](const auto& row) { return std::string(row.param.name); });

using FeatureQuery = SettingsRoot;

TEST_F(FeatureQuery, SeesWhatAnotherProcessHasChanged)
{
    const SETUP_Utility utility;
    EXPECT_EQ(utility.isFeatureAvailable(SETUP_FEATURE_WIFI), 0);
    inAnotherProcess([] { return settingshost::setFeature(431, true).isOk(); });
    EXPECT_NE(utility.isFeatureAvailable(SETUP_FEATURE_WIFI), 0);
    inAnotherProcess([] { return settingshost::setFeature(431, false).isOk(); });
    EXPECT_EQ(utility.isFeatureAvailable(SETUP_FEATURE_WIFI), 0);
}

TEST_F(FeatureQuery, KnowsNoFeatureOfANumberThatIsNotPositive)
{
    write(features(), "{\"0\": true, \"-1\": true}");
    EXPECT_EQ(SETUP_Utility().isFeatureAvailable(0), 0);
    EXPECT_EQ(SETUP_Utility().isFeatureAvailable(-1), 0);
}

} // namespace
