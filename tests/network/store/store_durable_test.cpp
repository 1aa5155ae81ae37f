// The durable files that the host libraries share.
#include <cerrno>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "base/durable_file.h"
#include "base/thread.h"
#include "network/store/store_faults.h"
#include "network/store/store_world.h"

namespace fs = std::filesystem;

namespace {

class DurableFile : public testing::Test
{
protected:
    int replace(const std::string& bytes, mode_t mode = 0600)
    {
        return base::replaceFile(opened.get(), "file", bytes, mode);
    }

    StoreWorld world{StoreWorld::On::Memory};
    base::UniqueFd opened = base::openFolder(world.root());
    std::string path = world.root() + "/file";
};

TEST_F(DurableFile, IsMadeWithItsMode)
{
    ASSERT_EQ(replace("text", 0640), 0);
    EXPECT_EQ(contentOf(path), "text");
    EXPECT_EQ(fs::status(path).permissions(), fs::perms(0640));
    EXPECT_EQ(entriesOf(world.root()), std::vector<std::string>{"file"});
}

TEST_F(DurableFile, IsReplacedWholly)
{
    ASSERT_EQ(replace(std::string(100000, 'a')), 0);
    ASSERT_EQ(replace("b"), 0);
    EXPECT_EQ(contentOf(path), "b");
    ASSERT_EQ(replace(""), 0);
    EXPECT_EQ(contentOf(path), "");
}

TEST_F(DurableFile, ReplacesAndSweepsWhatAKilledWriterLeft)
{
    std::ofstream(world.root() + "/.file.new") << "half";
    ASSERT_EQ(replace("whole"), 0);
    EXPECT_EQ(contentOf(path), "whole");
    EXPECT_EQ(entriesOf(world.root()), std::vector<std::string>{"file"});
}

TEST_F(DurableFile, IsTheOldOneWhenItsProcessEndsBeforeTheRenameAndElseTheNewOne)
{
    for (std::size_t at = 0;; ++at) {
        ASSERT_EQ(replace("old"), 0);
        int status = inChild([&] {
            faults::begin({faults::Fault::Die, at, 0});
            return replace("new");
        });
        std::string content = contentOf(path);
        ASSERT_TRUE(content == "old" || content == "new") << content;
        if (status == 0)
            break;
        ASSERT_EQ(status, faults::deathStatus);
    }
    EXPECT_EQ(contentOf(path), "new");
}

TEST_F(DurableFile, FailingWriteOrSyncLeavesTheOldOneAndNothingElse)
{
    ASSERT_EQ(replace("old"), 0);
    int failures = 0;
    for (std::size_t at = 0;; ++at) {
        faults::begin({faults::Fault::Fail, at, ENOSPC});
        int error = replace("new");
        std::vector<faults::Call> calls = faults::end();
        if (at >= calls.size())
            break;
        ++failures;
        // The last call brings the rename to the disk: only whether it stays is open when it fails.
        bool isLast = at + 1 == calls.size() && calls[at].function == "fsync";
        ASSERT_EQ(error, isLast ? base::notSynced : ENOSPC) << calls[at].function;
        ASSERT_EQ(contentOf(path), isLast ? "new" : "old") << calls[at].function;
        ASSERT_EQ(entriesOf(world.root()), std::vector<std::string>{"file"});
        ASSERT_EQ(replace("old"), 0);
    }
    EXPECT_GE(failures, 5);
}

TEST_F(DurableFile, FoldersAreMadeOnTheWayAndOnlyOnce)
{
    std::string folder = world.root() + "/a/b/c";
    EXPECT_EQ(base::makeFolders(folder), 0);
    EXPECT_TRUE(fs::is_directory(folder));
    EXPECT_EQ(base::makeFolders(folder), 0);
    std::ofstream(world.root() + "/file") << "x";
    EXPECT_EQ(base::makeFolders(world.root() + "/file"), ENOTDIR);
    EXPECT_EQ(base::makeFolders(world.root() + "/file/below"), ENOTDIR);
}

TEST_F(DurableFile, FoldersServeTheirOwnerWhateverTheUmask)
{
    for (const mode_t mask : {0777, 0700, 0177, 0000}) {
        SCOPED_TRACE(mask);
        world.clear();
        EXPECT_EQ(asOrdinaryUser(world,
                                 [&] {
                                     umask(mask);
                                     return base::makeFolders(world.root() + "/a/b", 0755);
                                 }),
                  0);
        EXPECT_EQ(fs::status(world.root() + "/a").permissions(), fs::perms(0700));
        EXPECT_EQ(fs::status(world.root() + "/a/b").permissions(), fs::perms(0755));
    }
}

// What a program leaves that is killed under an odd umask before it has given the folder its mode.
TEST_F(DurableFile, AnEmptyFolderThatItsOwnerMayNotEnterIsMadeAnew)
{
    for (const mode_t left : {0000, 0200, 0600}) {
        SCOPED_TRACE(left);
        world.clear();
        EXPECT_EQ(asOrdinaryUser(world,
                                 [&] {
                                     ::mkdir((world.root() + "/a").c_str(), left);
                                     return base::makeFolders(world.root() + "/a/b", 0755);
                                 }),
                  0);
        EXPECT_EQ(fs::status(world.root() + "/a").permissions(), fs::perms(0700));
        EXPECT_EQ(fs::status(world.root() + "/a/b").permissions(), fs::perms(0755));
    }
}

TEST_F(DurableFile, AFolderThatItsOwnerHasClosedStaysClosed)
{
    fs::create_directories(world.root() + "/a/kept");
    fs::permissions(world.root() + "/a", fs::perms(0));
    EXPECT_EQ(asOrdinaryUser(world, [&] { return base::makeFolders(world.root() + "/a/b"); }),
              EACCES);
    EXPECT_EQ(fs::status(world.root() + "/a").permissions(), fs::perms(0));
    EXPECT_TRUE(fs::exists(world.root() + "/a/kept"));
}

TEST_F(DurableFile, FoldersThatAreThereKeepTheirModes)
{
    fs::create_directory(world.root() + "/a");
    fs::permissions(world.root() + "/a", fs::perms(0750));
    EXPECT_EQ(base::makeFolders(world.root() + "/a", 0755), 0);
    EXPECT_EQ(fs::status(world.root() + "/a").permissions(), fs::perms(0750));
}

void* blockedSignals(void* signals)
{
    pthread_sigmask(SIG_SETMASK, nullptr, static_cast<sigset_t*>(signals));
    return nullptr;
}

TEST(Thread, BlocksEverySignalAndLeavesTheCallersMask)
{
    sigset_t before, callers, after, blocked;
    sigemptyset(&callers);
    sigaddset(&callers, SIGUSR2);
    pthread_sigmask(SIG_SETMASK, &callers, &before);
    pthread_t thread;
    int error = base::createThread(&thread, blockedSignals, &blocked);
    pthread_sigmask(SIG_SETMASK, &before, &after);
    ASSERT_EQ(error, 0);
    ASSERT_EQ(pthread_join(thread, nullptr), 0);
    for (int signal : {SIGINT, SIGTERM, SIGALRM, SIGCHLD, SIGUSR1, SIGUSR2, SIGPIPE, SIGRTMAX}) {
        EXPECT_EQ(sigismember(&blocked, signal), 1) << signal;
        EXPECT_EQ(sigismember(&after, signal), signal == SIGUSR2) << signal;
    }
}

} // namespace
