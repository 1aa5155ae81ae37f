// Several processes and threads on one store.
#include <atomic>
#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <stdexcept>
#include <sys/file.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

#include "network/store/store_world.h"

namespace fs = std::filesystem;

namespace {

class StoreSharing : public testing::Test
{
protected:
    pid_t start(const std::function<int()>& body)
    {
        fflush(nullptr);
        pid_t child = fork();
        if (child == 0) {
            prctl(PR_SET_PDEATHSIG, SIGKILL); // should the test itself be ended
            _exit(body());
        }
        return child;
    }

    static int resultOf(pid_t child)
    {
        int status = 0;
        waitpid(child, &status, 0);
        return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    }

    static bool hasEnded(pid_t child)
    {
        siginfo_t info{};
        waitid(P_PID, static_cast<id_t>(child), &info, WEXITED | WNOHANG | WNOWAIT);
        return info.si_pid == child;
    }

    StoreWorld world{StoreWorld::On::Memory};
};

// Makes, changes, renames and removes profiles of its own, and one that others write too.
int writeMuch(const std::string& own, int byte)
{
    NetworkProfile record = uniformRecord(byte), changed = uniformRecord(byte + 1);
    std::string name = own + "-first", newName = own + "-second";
    for (int i = 0; i < 200; ++i) {
        if (NAPI_CreateProfile(name.c_str(), &record, 0, 0) != NAPI_OK ||
            NAPI_ModifyProfile(name.c_str(), &changed, 0, 0) != NAPI_OK ||
            napihost::renameProfile(name.c_str(), newName.c_str()) != NAPI_OK ||
            NAPI_ModifyProfile("Shared", &record, 0, 0) != NAPI_OK ||
            napihost::deleteProfile(newName.c_str()) != NAPI_OK)
            return 1;
    }
    return NAPI_CreateProfile(own.c_str(), &record, 0, 0) == NAPI_OK ? 0 : 2;
}

TEST_F(StoreSharing, TwoProcessesWritingAtOnceLoseNothingAndReadersSeeWholeRecords)
{
    world.reset({{"Shared", 10}});
    pid_t one = start([] { return writeMuch("One", 20); });
    pid_t two = start([] { return writeMuch("Two", 30); });
    while (!hasEnded(one) || !hasEnded(two)) {
        for (const auto& [name, byte] : storedProfiles()) {
            // A profile listed may be gone when it is read.
            ASSERT_TRUE(byte >= 0 || byte == NAPI_ERR_NO_PROFILE) << name << " " << byte;
            ASSERT_TRUE(name != "Shared" || byte == 10 || byte == 20 || byte == 30) << byte;
        }
    }
    EXPECT_EQ(resultOf(one), 0);
    EXPECT_EQ(resultOf(two), 0);
    Profiles stored = storedProfiles();
    EXPECT_EQ(stored.erase("Shared"), 1u);
    EXPECT_EQ(stored, (Profiles{{"One", 20}, {"Two", 30}}));
    EXPECT_EQ(entriesOf(world.profiles()), (std::vector<std::string>{"One", "Shared", "Two"}));
}

// Counts a field of its own up, in a profile that others change too.
template <typename Field> int countUp(Field field)
{
    for (int i = 0; i < 200; ++i)
        if (napihost::changeProfile("Shared", [&](NetworkProfile& r) { ++(r.*field); }) != NAPI_OK)
            return 1;
    return 0;
}

TEST_F(StoreSharing, TwoProcessesChangingFieldsOfOneProfileLoseNoChange)
{
    world.reset({{"Shared", 0}});
    pid_t one = start([] { return countUp(&NetworkProfile::gprsDns1); });
    pid_t two = start([] { return countUp(&NetworkProfile::csdDns2); });
    EXPECT_EQ(resultOf(one), 0);
    EXPECT_EQ(resultOf(two), 0);
    NetworkProfile record;
    ASSERT_EQ(NAPI_ReadProfile("Shared", &record, 0, 0), NAPI_OK);
    EXPECT_EQ(record.gprsDns1, 200u);
    EXPECT_EQ(record.csdDns2, 200u);
}

TEST_F(StoreSharing, AChangeThatThrowsStoresNothingAndLetsTheNextWriterIn)
{
    world.reset({{"Shared", 7}});
    auto refuse = [](NetworkProfile& record) {
        record.gprsDns1 = 1;
        throw std::runtime_error("refused");
    };
    EXPECT_THROW(napihost::changeProfile("Shared", refuse), std::runtime_error);
    EXPECT_EQ(storedProfiles(), (Profiles{{"Shared", 7}}));
    EXPECT_EQ(napihost::deleteProfile("Shared"), NAPI_OK);
}

TEST_F(StoreSharing, AChangeOfAMissingOrDamagedProfileIsRefusedUnasked)
{
    world.reset({});
    bool isAsked = false;
    auto change = [&](NetworkProfile&) { isAsked = true; };
    EXPECT_EQ(napihost::changeProfile("Nobody", change), NAPI_ERR_NO_PROFILE);
    EXPECT_EQ(napihost::changeProfile("a/b", change), NAPI_ERR_NAME);
    world.reset({{"Cut", 1}});
    fs::resize_file(world.profiles() + "/Cut/profile", 1167);
    EXPECT_EQ(napihost::changeProfile("Cut", change), NAPI_ERR_DAMAGED);
    EXPECT_FALSE(isAsked);
}

TEST_F(StoreSharing, OnlyOneOfManyThreadsCreatesAName)
{
    for (int round = 0; round < 20; ++round) {
        world.clear();
        std::atomic<int> created{0}, refused{0};
        std::vector<std::thread> threads;
        for (int i = 0; i < 8; ++i)
            threads.emplace_back([&, i] {
                NetworkProfile record = uniformRecord(i);
                int result = NAPI_CreateProfile("A", &record, 0, 0);
                created += result == NAPI_OK;
                refused += result == NAPI_ERR_EXISTS;
            });
        for (std::thread& thread : threads)
            thread.join();
        ASSERT_EQ(created, 1);
        ASSERT_EQ(refused, 7);
    }
}

TEST_F(StoreSharing, ManyThreadsNeverPassTheLimit)
{
    fs::create_directories(world.profiles());
    for (unsigned int i = 0; i < NAPI_GetMaxProfiles() - 5; ++i)
        fs::create_directory(world.profiles() + "/Full" + std::to_string(i));
    std::atomic<int> created{0}, refused{0};
    std::vector<std::thread> threads;
    for (int i = 0; i < 10; ++i)
        threads.emplace_back([&, i] {
            NetworkProfile record = uniformRecord(i);
            int result = NAPI_CreateProfile(("New" + std::to_string(i)).c_str(), &record, 0, 0);
            created += result == NAPI_OK;
            refused += result == NAPI_ERR_MEMORY_FULL;
        });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(created, 5);
    EXPECT_EQ(refused, 5);
}

// Tells whether a writer of this process has come to a stop before the folder: it has opened it
// beside the one that holds the lock, and gets no further.
bool hasWaitingWriter(const std::string& folder)
{
    int descriptors = 0;
    std::error_code ignored;
    for (const auto& entry : fs::directory_iterator("/proc/self/fd"))
        descriptors += fs::read_symlink(entry.path(), ignored) == folder;
    return descriptors > 1;
}

// Takes the writers' lock as a writer of another process that has come to a stop.
class StoppedWriter
{
public:
    explicit StoppedWriter(const std::string& folder)
        : m_fd(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC))
    {
        EXPECT_EQ(flock(m_fd, LOCK_EX), 0);
    }
    ~StoppedWriter() { close(m_fd); }

private:
    int m_fd;
};

TEST_F(StoreSharing, ReadersDoNotWaitForAWriter)
{
    world.reset({{"A", 1}});
    StoppedWriter writer(world.profiles());
    std::vector<napihost::Finding> findings;
    EXPECT_EQ(storedProfiles(), (Profiles{{"A", 1}}));
    EXPECT_EQ(NAPI_IsProfileValid("A"), NAPI_OK);
    EXPECT_EQ(napihost::inspectStore(&findings), NAPI_OK);
}

TEST_F(StoreSharing, WritersWaitForAWriter)
{
    world.reset({{"A", 1}});
    std::thread waiting;
    std::atomic<bool> isDone{false};
    {
        StoppedWriter writer(world.profiles());
        waiting = std::thread([&] {
            NetworkProfile record = uniformRecord(2);
            EXPECT_EQ(NAPI_ModifyProfile("A", &record, 0, 0), NAPI_OK);
            isDone = true;
        });
        while (!hasWaitingWriter(world.profiles()))
            std::this_thread::yield();
        EXPECT_FALSE(isDone);
        EXPECT_EQ(storedProfiles(), (Profiles{{"A", 1}}));
    }
    waiting.join();
    EXPECT_EQ(storedProfiles(), (Profiles{{"A", 2}}));
}

TEST_F(StoreSharing, StoreTakenAwayWhileAWriterWaitsIsMadeAgain)
{
    world.reset({{"A", 1}});
    std::thread waiting;
    {
        StoppedWriter writer(world.profiles());
        waiting = std::thread([&] {
            NetworkProfile record = uniformRecord(2);
            EXPECT_EQ(NAPI_CreateProfile("B", &record, 0, 0), NAPI_OK);
        });
        while (!hasWaitingWriter(world.profiles()))
            std::this_thread::yield();
        fs::rename(world.profiles(), world.root() + "/taken");
    }
    waiting.join();
    EXPECT_EQ(storedProfiles(), (Profiles{{"B", 2}}));
}

// Another program that renames A to B and back, without the lock, until it is destroyed.
class Renaming
{
public:
    explicit Renaming(const std::string& profiles)
        : m_thread([this, a = profiles + "/A", b = profiles + "/B"] {
              while (!m_isOver) {
                  ::rename(a.c_str(), b.c_str());
                  ::rename(b.c_str(), a.c_str());
              }
          })
    {}
    ~Renaming()
    {
        m_isOver = true;
        m_thread.join();
    }

private:
    std::atomic<bool> m_isOver{false};
    std::thread m_thread;
};

TEST_F(StoreSharing, ListAlwaysShowsAProfileThatAnotherProgramRenames)
{
    world.reset({{"A", 1}, {"Still", 2}});
    Renaming renaming(world.profiles());
    for (int i = 0; i < 3000; ++i) {
        std::vector<std::string> names = listedNames();
        ASSERT_EQ(names.size(), 2u) << testing::PrintToString(names);
        ASSERT_TRUE(names[0] == "A" || names[0] == "B");
        ASSERT_EQ(names[1], "Still");
    }
}

TEST_F(StoreSharing, WritersAreSafeFromAProgramThatRenamesTheirProfile)
{
    world.reset({{"A", 1}});
    int changed = 0;
    {
        Renaming renaming(world.profiles());
        for (int i = 0; i < 1000; ++i) {
            NetworkProfile record = uniformRecord(i % 256);
            int modified = NAPI_ModifyProfile("A", &record, 0, 0);
            ASSERT_TRUE(modified == NAPI_OK || modified == NAPI_ERR_NO_PROFILE) << modified;
            changed += modified == NAPI_OK;
            int read = NAPI_ReadProfile("A", &record, 0, 0);
            ASSERT_TRUE(read == NAPI_OK || read == NAPI_ERR_NO_PROFILE) << read;
            ASSERT_TRUE(read != NAPI_OK || byteOf(record) >= 0);
        }
    }
    EXPECT_GT(changed, 0);
    EXPECT_EQ(listedNames(), std::vector<std::string>{"A"});
    EXPECT_EQ(entriesOf(world.profiles()), std::vector<std::string>{"A"});
}

TEST_F(StoreSharing, LockIsGivenBackThoughAChildProcessHoldsTheDescriptor)
{
    world.reset({{"A", 1}});
    std::atomic<bool> isOver{false};
    std::thread writing([&] {
        NetworkProfile record = uniformRecord(2);
        while (!isOver)
            NAPI_ModifyProfile("A", &record, 0, 0);
    });
    // Each child inherits whatever the writing thread has open, and keeps it.
    std::vector<pid_t> children;
    for (int i = 0; i < 20; ++i)
        children.push_back(start([] {
            pause();
            return 0;
        }));
    isOver = true;
    writing.join();
    NetworkProfile record = uniformRecord(3);
    EXPECT_EQ(NAPI_ModifyProfile("A", &record, 0, 0), NAPI_OK);
    for (pid_t child : children) {
        kill(child, SIGKILL);
        resultOf(child);
    }
}

} // namespace
