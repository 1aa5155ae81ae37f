// What becomes of the settings' files where the disk, another process or a person is in the way.
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstring>
#include <random>

#include <sys/stat.h>
#include <sys/syscall.h>

#include "settings/made_settings.h"
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

class SettingsFiles : public SettingsRoot
{
protected:
    void TearDown() override
    {
        renameError = 0;
        SettingsRoot::TearDown();
    }
};

TEST_F(SettingsFiles, RefusesToGrowAFileBeyondWhatItReads)
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

class RefusingFileSystem : public SettingsFiles, public testing::WithParamInterface<Refusal>
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

TEST(SettingsFilesRoot, MustBeAnAbsolutePathOfAFolder)
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

TEST_F(SettingsFiles, TellsALoopOfLinksInTheFilesPlaceAsDamage)
{
    ASSERT_EQ(::symlink("settings.json", settings().c_str()), 0);
    settingshost::Settings all;
    EXPECT_EQ(settingshost::listSettings(&all).code, Code::Broken);
}

TEST_F(SettingsFiles, TellsAnErrorOfTheDiskAsOne)
{
    // Reading a process's memory at its lowest address is an input or output error.
    ASSERT_EQ(::symlink("/proc/self/mem", settings().c_str()), 0);
    settingshost::Settings all;
    const Result result = settingshost::listSettings(&all);
    EXPECT_EQ(result.code, Code::Io);
    EXPECT_EQ(result.message, settings() + ": expected a readable file, found one that cannot be "
                                           "read (Input/output error)");
}

TEST_F(SettingsFiles, LosesNothingOfTwoProcessesThatWriteAtOnce)
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

TEST_F(SettingsFiles, IsWholeWheneverAWriterIsKilled)
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

TEST_F(SettingsFiles, WaitsTenSecondsForAnotherWriterThenSaysSo)
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

TEST_F(SettingsFiles, IsHeldUpByNobodyWhoMayOnlyReadTheFiles)
{
    ASSERT_EQ(::chmod((root + "/etc").c_str(), 0755), 0);
    OtherWriter reader(root + "/etc");
    EXPECT_TRUE(settingshost::setSetting("a", integer(2)).isOk());
}

TEST_F(SettingsFiles, MakesAFolderThatEveryProgramMayRead)
{
    std::filesystem::remove(root + "/etc");
    const mode_t mask = ::umask(0777);
    const settingshost::Result result = settingshost::setSetting("a", integer(2));
    ::umask(mask);
    EXPECT_TRUE(result.isOk()) << result.message;
    EXPECT_EQ(std::filesystem::status(root + "/etc").permissions(), std::filesystem::perms(0755));
    EXPECT_EQ(std::filesystem::status(settings()).permissions(), std::filesystem::perms(0644));
}

} // namespace
