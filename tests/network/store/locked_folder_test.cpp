// The lock that writers hold on a folder: its limit, and who does not inherit it.
#include "base/locked_folder.h"

#include <cerrno>
#include <chrono>
#include <csignal>
#include <thread>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include "network/store/store_world.h"

namespace {

using namespace std::chrono_literals;
using base::LockedFolder;

// Holds the lock as another program does, until its end.
class ForeignLock
{
public:
    explicit ForeignLock(const std::string& folder)
        : m_fd(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC))
    {
        EXPECT_EQ(flock(m_fd, LOCK_EX), 0);
    }
    ~ForeignLock() { close(m_fd); }

private:
    int m_fd;
};

class LockedFolderTest : public testing::Test
{
protected:
    StoreWorld world{StoreWorld::On::Memory};
};

TEST_F(LockedFolderTest, GivesUpWhenItsPatienceIsOver)
{
    ForeignLock foreign(world.root());
    LockedFolder folder;
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_EQ(folder.open(world.root(), 100ms), ETIMEDOUT);
    const auto waited = std::chrono::steady_clock::now() - begin;
    EXPECT_GE(waited, 100ms);
    EXPECT_LT(waited, 5s);
    EXPECT_EQ(folder.fd(), -1);
}

TEST_F(LockedFolderTest, WithoutPatienceAsksOnce)
{
    ForeignLock foreign(world.root());
    LockedFolder folder;
    EXPECT_EQ(folder.open(world.root(), 0ms), ETIMEDOUT);
}

TEST_F(LockedFolderTest, IsOpenedAsSoonAsTheOtherIsDone)
{
    LockedFolder folder;
    std::thread other;
    {
        auto foreign = std::make_unique<ForeignLock>(world.root());
        other = std::thread([held = std::move(foreign)]() mutable {
            std::this_thread::sleep_for(50ms);
            held.reset();
        });
    }
    EXPECT_EQ(folder.open(world.root(), 60s), 0);
    EXPECT_GE(folder.fd(), 0);
    other.join();
}

// A process that takes the lock, forks a child which lives on, and is killed itself. Gives the
// child, which the test inherits.
pid_t killedHolder(const std::string& path)
{
    prctl(PR_SET_CHILD_SUBREAPER, 1);
    int ends[2];
    EXPECT_EQ(pipe2(ends, O_CLOEXEC), 0);
    const int status = inChild([&] {
        LockedFolder folder;
        if (folder.open(path, 0ms) != 0)
            return 1;
        const pid_t child = fork();
        if (child == 0) {
            prctl(PR_SET_PDEATHSIG, 0);
            const int descriptor = folder.fd();
            if (write(ends[1], &descriptor, sizeof descriptor) < 0)
                return 2;
            for (;;)
                pause();
        }
        if (write(ends[1], &child, sizeof child) < 0)
            return 3;
        return raise(SIGKILL);
    });
    EXPECT_EQ(status, 128 + SIGKILL);
    close(ends[1]);
    int numbers[2] = {};
    EXPECT_EQ(read(ends[0], &numbers[0], sizeof(int)), ssize_t(sizeof(int)));
    EXPECT_EQ(read(ends[0], &numbers[1], sizeof(int)), ssize_t(sizeof(int)));
    close(ends[0]);
    // The two write in either order; the child says that it has no descriptor.
    EXPECT_TRUE(numbers[0] == -1 || numbers[1] == -1);
    return numbers[0] == -1 ? numbers[1] : numbers[0];
}

TEST_F(LockedFolderTest, AForkedChildThatOutlivesTheHolderHoldsNothing)
{
    const pid_t child = killedHolder(world.root());
    ASSERT_GT(child, 1);
    LockedFolder folder;
    EXPECT_EQ(folder.open(world.root(), 0ms), 0);
    EXPECT_EQ(kill(child, SIGKILL), 0);
    EXPECT_EQ(waitpid(child, nullptr, 0), child);
}

TEST_F(LockedFolderTest, TheHolderKeepsItsLockWhenItForks)
{
    LockedFolder folder;
    ASSERT_EQ(folder.open(world.root(), 0ms), 0);
    EXPECT_EQ(inChild([&] {
                  LockedFolder other;
                  return other.open(world.root(), 0ms) == ETIMEDOUT ? 0 : 1;
              }),
              0);
    LockedFolder other;
    EXPECT_EQ(other.open(world.root(), 0ms), ETIMEDOUT);
}

TEST_F(LockedFolderTest, ThreadsThatForkWhileOthersTakeTheLockLeaveNoLockBehind)
{
    std::atomic<bool> isOver{false};
    std::thread taking([&] {
        while (!isOver) {
            LockedFolder folder;
            ASSERT_EQ(folder.open(world.root(), 60s), 0);
        }
    });
    for (int i = 0; i < 50; ++i)
        ASSERT_EQ(inChild([&] {
                      LockedFolder folder;
                      return folder.open(world.root(), 60s);
                  }),
                  0);
    isOver = true;
    taking.join();
}

} // namespace
