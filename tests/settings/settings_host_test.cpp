#include "settings/settings_host.h"

#include <sys/stat.h>

#include "settings/made_settings.h"
#include "settings/settings_root.h"

using settingshost::Code;
using settingshost::Result;
using settingshost::Setting;

namespace {

using SettingsHost = SettingsRoot;

TEST_F(SettingsHost, GivesBackWhatWasSet)
{
    Setting got;
    ASSERT_TRUE(settingshost::setSetting("a", integer(-2147483647 - 1)).isOk());
    ASSERT_TRUE(settingshost::setSetting("b", text("\xe7\xbd\x91\n\"")).isOk());
    ASSERT_TRUE(settingshost::setSetting("c", boolean(true)).isOk());
    ASSERT_TRUE(settingshost::getSetting("a", &got).isOk());
    EXPECT_EQ(got.type, Setting::Type::Integer);
    EXPECT_EQ(got.integer, -2147483647 - 1);
    ASSERT_TRUE(settingshost::getSetting("b", &got).isOk());
    EXPECT_EQ(got.type, Setting::Type::Text);
    EXPECT_EQ(got.text, "\xe7\xbd\x91\n\"");
    ASSERT_TRUE(settingshost::getSetting("c", &got).isOk());
    EXPECT_EQ(got.type, Setting::Type::Boolean);
    EXPECT_TRUE(got.boolean);
}

TEST_F(SettingsHost, WritesAFileForPeople)
{
    ASSERT_TRUE(settingshost::setSetting("DefConnPrefer", integer(1)).isOk());
    ASSERT_TRUE(settingshost::setSetting("Name", text("x")).isOk());
    ASSERT_TRUE(settingshost::setFeature(431, true).isOk());
    EXPECT_EQ(read(settings()), "{\n  \"DefConnPrefer\": 1,\n  \"Name\": \"x\"\n}\n");
    EXPECT_EQ(read(features()), "{\n  \"431\": true\n}\n");
}

TEST_F(SettingsHost, KeepsEverythingElseByteForByte)
{
    write(settings(),
          "{\"z\":{\"x\":[1, 2.50,null]},\n\n \"m\" : 1 , \"big\":18446744073709551616}");
    ASSERT_TRUE(settingshost::setSetting("m", boolean(false)).isOk());
    EXPECT_EQ(read(settings()), "{\"z\":{\"x\":[1, 2.50,null]},\n\n \"m\" : false , "
                                "\"big\":18446744073709551616}");
}

TEST_F(SettingsHost, RemovesASettingAndAFeature)
{
    write(settings(), "{\n  \"a\": 1,\n  \"b\": 2\n}\n");
    write(features(), "{\"7\": true}");
    EXPECT_TRUE(settingshost::removeSetting("a").isOk());
    EXPECT_TRUE(settingshost::removeFeature(7).isOk());
    EXPECT_EQ(read(settings()), "{\n  \"b\": 2\n}\n");
    EXPECT_EQ(read(features()), "{}");
    EXPECT_EQ(settingshost::removeSetting("a").code, Code::NoNode);
    EXPECT_EQ(settingshost::removeFeature(7).code, Code::NoNode);
    EXPECT_EQ(read(settings()), "{\n  \"b\": 2\n}\n");
}

TEST_F(SettingsHost, RemovesNothingFromWhatItCannotUse)
{
    write(settings(), "{\"a\": 1,");
    EXPECT_EQ(settingshost::removeSetting("a").code, Code::Broken);
    EXPECT_EQ(settingshost::removeSetting("").code, Code::Name);
    EXPECT_EQ(settingshost::removeFeature(0).code, Code::Number);
    EXPECT_EQ(read(settings()), "{\"a\": 1,");
}

TEST_F(SettingsHost, MakesNothingToRemoveFrom)
{
    ::setenv("VORN_ROOT", (root + "/new/root").c_str(), 1);
    EXPECT_EQ(settingshost::removeSetting("a").code, Code::NoNode);
    EXPECT_EQ(settingshost::removeFeature(431).code, Code::NoNode);
    EXPECT_FALSE(std::filesystem::exists(root + "/new"));
}

TEST_F(SettingsHost, MakesTheFoldersOnTheWay)
{
    ::setenv("VORN_ROOT", (root + "/new/root").c_str(), 1);
    EXPECT_TRUE(settingshost::setFeature(431, true).isOk());
    EXPECT_TRUE(std::filesystem::exists(root + "/new/root/etc/features.json"));
}

TEST_F(SettingsHost, KeepsTheModeOfAFile)
{
    struct stat status;
    ASSERT_TRUE(settingshost::setSetting("a", integer(1)).isOk());
    ASSERT_EQ(::stat(settings().c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0644U);
    ASSERT_EQ(::chmod(settings().c_str(), 0640), 0);
    ASSERT_TRUE(settingshost::setSetting("a", integer(2)).isOk());
    ASSERT_EQ(::stat(settings().c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0640U);
}

TEST_F(SettingsHost, ListsTheUsableNodesInTheOrderOfTheFile)
{
    write(settings(), "{\"z\": 1, \"bad\": null, \"\": 3, \"a\": \"t\", \"m\": true}");
    settingshost::Settings all;
    ASSERT_TRUE(settingshost::listSettings(&all).isOk());
    ASSERT_EQ(all.size(), 3U);
    EXPECT_EQ(all[0].first, "z");
    EXPECT_EQ(all[0].second.integer, 1);
    EXPECT_EQ(all[1].first, "a");
    EXPECT_EQ(all[1].second.text, "t");
    EXPECT_EQ(all[2].first, "m");
    EXPECT_TRUE(all[2].second.boolean);
}

TEST_F(SettingsHost, ListsTheFeaturesByNumber)
{
    write(features(), "{\"1000\": false, \"431\": true, \"x\": true, \"5\": \"yes\"}");
    settingshost::Features all;
    ASSERT_TRUE(settingshost::listFeatures(&all).isOk());
    EXPECT_EQ(all, (settingshost::Features{{5, false}, {431, true}, {1000, false}}));
}

TEST_F(SettingsHost, ListsNothingWhereNoFileIs)
{
    settingshost::Settings settings = {{"old", {}}};
    settingshost::Features features = {{1, true}};
    EXPECT_TRUE(settingshost::listSettings(&settings).isOk());
    EXPECT_TRUE(settingshost::listFeatures(&features).isOk());
    EXPECT_TRUE(settings.empty());
    EXPECT_TRUE(features.empty());
}

TEST_F(SettingsHost, SaysThatANodeIsNotThere)
{
    Setting kept = integer(5);
    const Result result = settingshost::getSetting("Nothing", &kept);
    EXPECT_EQ(result.code, Code::NoNode);
    EXPECT_EQ(result.message, "there is no node Nothing in " + settings());
    EXPECT_EQ(kept.integer, 5);
}

TEST_F(SettingsHost, SaysWhatIsWrongWithAnUnusableNode)
{
    write(settings(), "{\n\"a\": null}");
    Setting kept = integer(5);
    const Result result = settingshost::getSetting("a", &kept);
    EXPECT_EQ(result.code, Code::Unusable);
    EXPECT_EQ(result.message.rfind(settings() + ":2: a: expected an integer", 0), 0U)
        << result.message;
    EXPECT_EQ(kept.integer, 5);
}

TEST_F(SettingsHost, MendsAnUnusableNodeBySettingIt)
{
    write(settings(), "{\"a\": null}");
    EXPECT_TRUE(settingshost::setSetting("a", integer(1)).isOk());
    EXPECT_EQ(read(settings()), "{\"a\": 1}");
}

TEST_F(SettingsHost, RefusesABrokenFileAndLeavesItAsItIs)
{
    for (const std::string broken : {"{\"a\": 1,}", "", "[]", "{\"a\": \"\xff\"}"}) {
        write(settings(), broken);
        Setting setting;
        settingshost::Settings all;
        EXPECT_EQ(settingshost::getSetting("a", &setting).code, Code::Broken) << broken;
        EXPECT_EQ(settingshost::listSettings(&all).code, Code::Broken) << broken;
        const Result result = settingshost::setSetting("a", integer(1));
        EXPECT_EQ(result.code, Code::Broken) << broken;
        EXPECT_EQ(result.message.rfind(settings() + ":1: expected ", 0), 0U) << result.message;
        EXPECT_EQ(read(settings()), broken);
    }
}

TEST_F(SettingsHost, RefusesWhatIsNoFile)
{
    std::filesystem::create_directory(settings());
    const Result result = settingshost::setSetting("a", integer(1));
    EXPECT_EQ(result.code, Code::Broken);
    EXPECT_EQ(result.message, settings() + ": expected a readable file, found a folder");
}

struct Name
{
    const char* name;
    std::string text;
};

void PrintTo(const Name& row, std::ostream* out)
{
    *out << row.name;
}

class NoNodeName : public SettingsHost, public testing::WithParamInterface<Name>
{};

TEST_P(NoNodeName, IsRefusedAndTouchesNothing)
{
    Setting setting;
    EXPECT_EQ(settingshost::setSetting(GetParam().text, integer(1)).code, Code::Name);
    EXPECT_EQ(settingshost::getSetting(GetParam().text, &setting).code, Code::Name);
    EXPECT_FALSE(std::filesystem::exists(settings()));
}

INSTANTIATE_TEST_SUITE_P(
    Names, NoNodeName,
    testing::Values(Name{"Empty", ""}, Name{"Newline", "a\nb"}, Name{"Delete", "a\x7f"},
                    Name{"Escape", "\x1b[2J"}, Name{"Nul", std::string("a\0b", 3)},
                    Name{"SecondControlBlock", "a\xc2\x9f"}, Name{"BrokenUtf8", "a\xff"},
                    Name{"Surrogate", "\xed\xa0\x80"}, Name{"TooLong", std::string(256, 'x')}),
    [](const auto& row) { return std::string(row.param.name); });

class NodeName : public SettingsHost, public testing::WithParamInterface<Name>
{};

TEST_P(NodeName, IsTaken)
{
    Setting setting;
    EXPECT_TRUE(settingshost::setSetting(GetParam().text, integer(4)).isOk());
    EXPECT_TRUE(settingshost::getSetting(GetParam().text, &setting).isOk());
    EXPECT_EQ(setting.integer, 4);
}

INSTANTIATE_TEST_SUITE_P(Names, NodeName,
                         testing::Values(Name{"OneByte", "x"}, Name{"Slash", "./a/b"},
                                         Name{"Blank", " "}, Name{"Quote", "\"\\"},
                                         Name{"FirstAfterTheControls", "\xc2\xa0"},
                                         Name{"Chinese", "\xe7\xbd\x91"},
                                         Name{"Longest", std::string(255, 'x')}),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(SettingsHost, RefusesTextsThatNoNodeCanHold)
{
    for (const std::string& bad :
         {std::string("\xff"), std::string("a\0b", 3), std::string(4097, 'x')})
        EXPECT_EQ(settingshost::setSetting("a", text(bad)).code, Code::Value);
    EXPECT_FALSE(std::filesystem::exists(settings()));
    EXPECT_TRUE(settingshost::setSetting("a", text(std::string(4096, 'x'))).isOk());
}

TEST_F(SettingsHost, RefusesFeatureNumbersThatAreNotPositive)
{
    EXPECT_EQ(settingshost::setFeature(0, true).code, Code::Number);
    EXPECT_EQ(settingshost::setFeature(-431, true).code, Code::Number);
    EXPECT_FALSE(std::filesystem::exists(features()));
    EXPECT_TRUE(settingshost::setFeature(2147483647, true).isOk());
}

TEST_F(SettingsHost, NamesTheFeaturesItKnows)
{
    EXPECT_STREQ(settingshost::featureText(431), "WiFi");
    EXPECT_STREQ(settingshost::featureText(1), "");
}

} // namespace
