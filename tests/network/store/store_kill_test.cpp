// Writers killed at random instants. Each test prints its seed; VORN_TEST_SEED replays it.
#include <csignal>
#include <cstdlib>
#include <gtest/gtest.h>
#include <random>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <time.h>

#include "network/store/store_world.h"

namespace {

unsigned long chosenSeed()
{
    const char* given = getenv("VORN_TEST_SEED");
    unsigned long seed = given ? strtoul(given, nullptr, 0) : std::random_device()();
    std::cout << "VORN_TEST_SEED=" << seed << "\n";
    return seed;
}

enum class Kind { Create, Modify, Delete, Rename };

struct Change
{
    Kind kind;
    std::string name, newName;
    int byte;
};

using Random = std::mt19937;

Change randomChange(Random* random)
{
    auto draw = [&](unsigned int below) { return static_cast<unsigned int>((*random)()) % below; };
    auto name = [&] { return "Profile" + std::to_string(draw(6)); };
    return {static_cast<Kind>(draw(4)), name(), name(), static_cast<int>(draw(256))};
}

int carryOut(const Change& change)
{
    NetworkProfile record = uniformRecord(change.byte);
    switch (change.kind) {
    case Kind::Create:
        return NAPI_CreateProfile(change.name.c_str(), &record, 0, 0);
    case Kind::Modify:
        return NAPI_ModifyProfile(change.name.c_str(), &record, 0, 0);
    case Kind::Delete:
        return napihost::deleteProfile(change.name.c_str());
    case Kind::Rename:
        return napihost::renameProfile(change.name.c_str(), change.newName.c_str());
    }
    return -1;
}

// What the change makes of a store.
Profiles modelOf(const Change& change, Profiles content)
{
    auto found = content.find(change.name);
    bool isThere = found != content.end();
    switch (change.kind) {
    case Kind::Create:
        content.emplace(change.name, change.byte);
        break;
    case Kind::Modify:
        if (isThere)
            found->second = change.byte;
        break;
    case Kind::Delete:
        content.erase(change.name);
        break;
    case Kind::Rename:
        if (isThere && content.emplace(change.newName, found->second).second)
            content.erase(change.name);
        break;
    }
    return content;
}

// What the writer tells the test, in memory that outlives it.
struct Progress
{
    volatile long begun, done;
};

class Killing : public testing::Test
{
protected:
    Killing()
        : progress(static_cast<Progress*>(mmap(nullptr, sizeof(Progress), PROT_READ | PROT_WRITE,
                                               MAP_SHARED | MAP_ANONYMOUS, -1, 0)))
    {}
    ~Killing() override { munmap(progress, sizeof(Progress)); }

    // Lets a child make changes drawn from `random`, and kills it some time after the first has
    // begun.
    void writeUntilKilled(Random random, long nanoseconds)
    {
        *progress = {};
        pid_t child = fork();
        if (child == 0) {
            prctl(PR_SET_PDEATHSIG, SIGKILL); // should the test itself be ended
            for (;;) {
                Change change = randomChange(&random);
                progress->begun = progress->begun + 1;
                carryOut(change);
                progress->done = progress->done + 1;
            }
        }
        while (progress->begun == 0)
            sched_yield();
        timespec delay{0, nanoseconds};
        nanosleep(&delay, nullptr);
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
    }

    // The store after the changes that the killed child finished, and after the one it may have
    // begun.
    std::pair<Profiles, Profiles> expected(Profiles content, Random random) const
    {
        for (long i = 0; i < progress->done; ++i)
            content = modelOf(randomChange(&random), content);
        Profiles next = content;
        if (progress->begun > progress->done)
            next = modelOf(randomChange(&random), content);
        return {content, next};
    }

    StoreWorld world{StoreWorld::On::Memory};
    Progress* progress;
};

// A thousand, unless VORN_TEST_ROUNDS asks for more.
int wantedRounds()
{
    const char* given = getenv("VORN_TEST_ROUNDS");
    return given ? atoi(given) : 1000;
}

TEST_F(Killing, AThousandTimesLeavesEveryProfileAsItWasOrAsItWasToBe)
{
    Random random(static_cast<Random::result_type>(chosenSeed()));
    Profiles content;
    int unfinished = 0, leftovers = 0;
    const int rounds = wantedRounds();
    for (int round = 0; round < rounds; ++round) {
        SCOPED_TRACE("round " + std::to_string(round));
        Random childs(random());
        writeUntilKilled(childs, static_cast<long>(random() % 400000));
        auto [done, next] = expected(content, childs);
        content = storedProfiles();
        ASSERT_TRUE(content == done || content == next)
            << "is " << testing::PrintToString(content) << "\nwas " << testing::PrintToString(done)
            << "\nwas to be " << testing::PrintToString(next);
        unfinished += progress->begun > progress->done;
        leftovers += entriesOf(world.profiles()) != listedNames();
        if (round % 10 == 9) {
            napihost::renameProfile("Profile0", "Profile0");
            ASSERT_EQ(entriesOf(world.profiles()), listedNames()) << "not swept";
        }
    }
    // The test means something only while most rounds interrupt a change.
    EXPECT_GT(unfinished, rounds * 3 / 10);
    std::cout << rounds << " writers were killed, " << unfinished << " within a change, "
              << leftovers << " left something\n";
}

} // namespace
