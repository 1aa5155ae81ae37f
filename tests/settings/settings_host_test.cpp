#include "settings/settings_host.h"

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstring>
#include <random>

#include <sys/stat.h>
#include <sys/syscall.h>

#include "settings/settings_root.h"

using settingshost::Code;
using settingshost::Result;
using settingshost::Setting;

namespace {

// The errno with which the renaming of a new file fails; 0 lets it happen.
int renameError = 0;

} // namespace

extern "C" __attribute__((visibility("default"))) int
renameat(int fromFolder, const char* from, int toFolder, const char* to) noexcept
{
    if (renameError == 0)
        return static_cast<int>(::syscall(SYS_renameat2, fromFolder, from, toFolder, to, 0));
    errno = renameError;
    return -1;
}

namespace {

Setting integer(int value)
{
    Setting setting;
    setting.integer = value;
    return setting;
}

Setting text(const std::string& value)
{
    Setting setting;
    setting.type = Setting::Type::Text;
    setting.text = value;
    return setting;
}

Setting boolean(bool value)
{
    Setting setting;
    setting.type = Setting::Type::Boolean;
    setting.boolean = value;
    return setting;
}

class SettingsHost : public SettingsRoot
{
protected:
    void TearDown() override
    {
        renameError = 0;
        SettingsRoot::TearDown();
    }
};

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

TEST_F(SettingsHost, RefusesToGrowAFileBeyondWhatItReads)
{
    const std::string large = "{\"z\": \"" + std::string(4 * 1024 * 1024 - 100, 'x') + "\"}";
    write(settings(), large);
    EXPECT_EQ(settingshost::setSetting("a", text(std::string(200, 'y'))).code, Code::Full);
    EXPECT_EQ(read(settings()), large);
}

struct Refusal
{
    const char* name;
    int error;
    Code code;
};

void PrintTo(const Refusal& row, std::ostream* out)
{
    *out << row.name;
}

class RefusingFileSystem : public SettingsHost, public testing::WithParamInterface<Refusal>
{};

TEST_P(RefusingFileSystem, IsToldAndNothingIsLost)
{
    write(settings(), "{\"a\": 1}");
    renameError = GetParam().error;
    const Result result = settingshost::setSetting("a", integer(2));
    EXPECT_EQ(result.code, GetParam().code);
    EXPECT_EQ(result.message, settings() + ": " + std::strerror(GetParam().error));
    EXPECT_EQ(read(settings()), "{\"a\": 1}");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(root + "/etc"), {}), 1);
}

INSTANTIATE_TEST_SUITE_P(Errors, RefusingFileSystem,
                         testing::Values(Refusal{"Permission", EACCES, Code::Access},
                                         Refusal{"NotTheOwner", EPERM, Code::Access},
                                         Refusal{"MountedReadOnly", EROFS, Code::Access},
                                         Refusal{"DiskFull", ENOSPC, Code::Full},
                                         Refusal{"QuotaFull", EDQUOT, Code::Full},
                                         Refusal{"DiskFault", EIO, Code::Io}),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(SettingsHostRoot, MustBeAnAbsolutePathOfAFolder)
{
    for (const char* root : {"relative", "/dev/null", "/dev/null/below"}) {
        ::setenv("VORN_ROOT", root, 1);
        Setting setting;
        settingshost::Features features;
        EXPECT_EQ(settingshost::getSetting("a", &setting).code, Code::Root) << root;
        EXPECT_EQ(settingshost::setSetting("a", setting).code, Code::Root) << root;
        EXPECT_EQ(settingshost::listFeatures(&features).code, Code::Root) << root;
        EXPECT_EQ(settingshost::setFeature(1, true).code, Code::Root) << root;
        EXPECT_EQ(settingshost::inspectSettings().size(), 1U) << root;
    }
    ::unsetenv("VORN_ROOT");
}

TEST_F(SettingsHost, TellsALoopOfLinksInTheFilesPlaceAsDamage)
{
    ASSERT_EQ(::symlink("settings.json", settings().c_str()), 0);
    settingshost::Settings all;
    EXPECT_EQ(settingshost::listSettings(&all).code, Code::Broken);
}

TEST_F(SettingsHost, TellsAnErrorOfTheDiskAsOne)
{
    // Reading a process's memory at its lowest address is an input or output error.
    ASSERT_EQ(::symlink("/proc/self/mem", settings().c_str()), 0);
    settingshost::Settings all;
    const Result result = settingshost::listSettings(&all);
    EXPECT_EQ(result.code, Code::Io);
    EXPECT_EQ(result.message, settings() + ": expected a readable file, found one that cannot be "
                                           "read (Input/output error)");
}

TEST_F(SettingsHost, LosesNothingOfTwoProcessesThatWriteAtOnce)
{
    constexpr int each = 60;
    pid_t children[2];
    for (int writer = 0; writer < 2; ++writer) {
        children[writer] = ::fork();
        ASSERT_GE(children[writer], 0);
        if (children[writer] != 0)
            continue;
        bool isGood = true;
        for (int i = 0; i < each; ++i)
            isGood = isGood && settingshost::setSetting(
                                   std::to_string(writer) + '/' + std::to_string(i), integer(i))
                                   .isOk();
        ::_exit(isGood ? 0 : 1);
    }
    for (const pid_t child : children) {
        int status = 1;
        ASSERT_EQ(::waitpid(child, &status, 0), child);
        EXPECT_EQ(status, 0);
    }
    settingshost::Settings all;
    ASSERT_TRUE(settingshost::listSettings(&all).isOk());
    EXPECT_EQ(all.size(), 2U * each);
}

TEST_F(SettingsHost, IsWholeWheneverAWriterIsKilled)
{
    std::mt19937 random(20240229);
    std::uniform_int_distribution<int> microseconds(0, 3000);
    write(settings(), "{\"kept\": \"yes\", \"n\": 0}");
    for (int round = 0; round < 100; ++round) {
        const pid_t child = ::fork();
        ASSERT_GE(child, 0);
        for (int i = 0; child == 0; ++i)
            settingshost::setSetting("n", integer(i));
        ::usleep(static_cast<useconds_t>(microseconds(random)));
        ASSERT_EQ(::kill(child, SIGKILL), 0);
        ASSERT_EQ(::waitpid(child, nullptr, 0), child);
        Setting kept;
        ASSERT_TRUE(settingshost::getSetting("n", &kept).isOk()) << read(settings());
        ASSERT_TRUE(settingshost::getSetting("kept", &kept).isOk());
        ASSERT_EQ(kept.text, "yes");
    }
    ASSERT_TRUE(settingshost::setSetting("n", integer(-1)).isOk());
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(root + "/etc"), {}), 1);
}

TEST_F(SettingsHost, WaitsTenSecondsForAnotherWriterThenSaysSo)
{
    write(settings(), "{\"a\": 1}");
    OtherWriter other(root);
    const auto begin = std::chrono::steady_clock::now();
    const settingshost::Result result = settingshost::setSetting("a", integer(2));
    EXPECT_GE(std::chrono::steady_clock::now() - begin, std::chrono::seconds(10));
    EXPECT_EQ(result.code, Code::Busy);
    EXPECT_EQ(result.message,
              root + "/etc: another program is writing and has not ended for 10 seconds");
    EXPECT_EQ(read(settings()), "{\"a\": 1}");
}

TEST_F(SettingsHost, IsHeldUpByNobodyWhoMayOnlyReadTheFiles)
{
    ASSERT_EQ(::chmod((root + "/etc").c_str(), 0755), 0);
    OtherWriter reader(root + "/etc");
    EXPECT_TRUE(settingshost::setSetting("a", integer(2)).isOk());
}

TEST_F(SettingsHost, MakesAFolderThatEveryProgramMayRead)
{
    std::filesystem::remove(root + "/etc");
    const mode_t mask = ::umask(0777);
    const settingshost::Result result = settingshost::setSetting("a", integer(2));
    ::umask(mask);
    EXPECT_TRUE(result.isOk()) << result.message;
    EXPECT_EQ(std::filesystem::status(root + "/etc").permissions(), std::filesystem::perms(0755));
    EXPECT_EQ(std::filesystem::status(settings()).permissions(), std::filesystem::perms(0644));
}

TEST_F(SettingsHost, NamesTheFeaturesItKnows)
{
    EXPECT_STREQ(settingshost::featureText(431), "WiFi");
    EXPECT_STREQ(settingshost::featureText(1), "");
}

} // namespace
