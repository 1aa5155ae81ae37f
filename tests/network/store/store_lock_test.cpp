// A store that another program keeps locked.
#include <chrono>
#include <thread>
#include <vector>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <unistd.h>

#include "network/store/store_world.h"

namespace {

using namespace std::chrono_literals;

struct Change
{
    const char* label;
    int (*run)();
};

const Change changes[] = {
    {"Create",
     [] {
         NetworkProfile record = uniformRecord(5);
         return NAPI_CreateProfile("New", &record, 0, 0);
     }},
    {"Modify",
     [] {
         NetworkProfile record = uniformRecord(5);
         return NAPI_ModifyProfile("A", &record, 0, 0);
     }},
    {"Change", [] { return napihost::changeProfile("A", [](NetworkProfile&) {}); }},
    {"Delete", [] { return napihost::deleteProfile("A"); }},
    {"Rename", [] { return napihost::renameProfile("A", "B"); }},
};

TEST(StoreLock, IsWaitedForTenSecondsThenTheStoreIsBusyAndUnchanged)
{
    StoreWorld world(StoreWorld::On::Memory);
    world.reset({{"A", 1}});
    const int other = open(world.profiles().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    ASSERT_EQ(flock(other, LOCK_EX), 0);
    std::vector<std::thread> writers;
    for (const Change& change : changes)
        writers.emplace_back([&change] {
            const auto begin = std::chrono::steady_clock::now();
            EXPECT_EQ(change.run(), NAPI_ERR_BUSY) << change.label;
            const auto waited = std::chrono::steady_clock::now() - begin;
            EXPECT_GE(waited, 10s) << change.label;
            EXPECT_LT(waited, 20s) << change.label;
        });
    for (std::thread& writer : writers)
        writer.join();
    EXPECT_EQ(storedProfiles(), (Profiles{{"A", 1}}));
    close(other);
}

} // namespace
