// What a loss of power leaves of a change of the store.
#include <gtest/gtest.h>

#include <algorithm>

#include "network/store/disk_replay.h"
#include "network/store/store_faults.h"
#include "network/store/store_world.h"

namespace {

using faults::Call;
using replay::Disk;
using replay::Replay;

enum class Record { Absent, Damaged, Old, New };

struct Change
{
    const char* label;
    int (*run)();
    // The profiles that it concerns, and what each may be while it goes on and must be afterwards.
    std::map<std::string, Record> before, after;
};

const Change changes[] = {
    {"Create",
     createNew,
     {{"A", Record::Old}, {"New", Record::Absent}},
     {{"A", Record::Old}, {"New", Record::New}}},
    {"Modify", modifyA, {{"A", Record::Old}}, {{"A", Record::New}}},
    {"Delete",
     [] { return napihost::deleteProfile("A"); },
     {{"A", Record::Old}},
     {{"A", Record::Absent}}},
    {"Rename",
     [] { return napihost::renameProfile("A", "C"); },
     {{"A", Record::Old}, {"C", Record::Absent}},
     {{"A", Record::Absent}, {"C", Record::Old}}},
};

void PrintTo(const Change& change, std::ostream* out)
{
    *out << change.label;
}

class StorePower : public testing::TestWithParam<Change>
{
protected:
    void SetUp() override
    {
        world.reset({{"A", 1}});
        m_store = replay::inodeOf(world.profiles());
        ino_t folder = replay::inodeOf(world.profiles() + "/A");
        m_oldRecord = replay::inodeOf(world.record("A"));
        start.folders[m_store]["A"] = folder;
        start.folders[folder]["profile"] = m_oldRecord;
        start.safeFiles = {m_oldRecord};
        faults::begin();
        ASSERT_EQ(GetParam().run(), NAPI_OK);
        calls = faults::end();
    }

    Record recordOn(const Disk& disk, const std::string& name) const
    {
        const auto& profiles = disk.folders.at(m_store);
        auto folder = profiles.find(name);
        if (folder == profiles.end())
            return Record::Absent;
        auto entries = disk.folders.find(folder->second);
        if (entries == disk.folders.end() || entries->second.count("profile") == 0)
            return Record::Damaged;
        ino_t file = entries->second.at("profile");
        if (disk.safeFiles.count(file) == 0)
            return Record::Damaged;
        return file == m_oldRecord ? Record::Old : Record::New;
    }

    std::map<std::string, Record> stateOn(const Disk& disk) const
    {
        std::map<std::string, Record> state;
        for (const auto& [name, record] : GetParam().before)
            state[name] = recordOn(disk, name);
        return state;
    }

    // How many of the possible disks are neither as before nor as after; and, at the end, as
    // before.
    int wrongOutcomes(const std::vector<Call>& recorded) const
    {
        int wrong = 0;
        Replay replayed(start);
        for (const Call& call : recorded) {
            replayed.run(call);
            replayed.forEachOutcome([&](const Disk& disk) {
                auto state = stateOn(disk);
                wrong += state != GetParam().before && state != GetParam().after;
            });
        }
        replayed.forEachOutcome(
            [&](const Disk& disk) { wrong += stateOn(disk) != GetParam().after; });
        return wrong;
    }

    StoreWorld world;
    Disk start;
    std::vector<Call> calls;

private:
    ino_t m_store = 0, m_oldRecord = 0;
};

TEST_P(StorePower, LossAtAnyInstantLeavesTheOldOrTheNewStateAndNoneAfterTheCall)
{
    EXPECT_EQ(wrongOutcomes(calls), 0);
}

// The store waits for the disk no more often than the promise needs.
TEST_P(StorePower, EveryWaitForTheDiskIsNeeded)
{
    int syncs = 0;
    for (std::size_t i = 0; i < calls.size(); ++i) {
        if (calls[i].function != "fsync")
            continue;
        ++syncs;
        std::vector<Call> without = calls;
        without.erase(without.begin() + static_cast<std::ptrdiff_t>(i));
        EXPECT_GT(wrongOutcomes(without), 0) << "fsync number " << syncs;
    }
    EXPECT_GE(syncs, 1);
}

INSTANTIATE_TEST_SUITE_P(Changes, StorePower, testing::ValuesIn(changes),
                         [](const auto& change) { return std::string(change.param.label); });

// The folders on the way to the profiles are as safe as the first profile in them.
TEST(StorePowerOfANewRoot, EveryNewFolderIsSyncedIntoItsParent)
{
    StoreWorld world;
    std::vector<std::string> made{"vornlocal", "vornlocal/download", "vornlocal/download/appwrite",
                                  "vornlocal/download/appwrite/NetProfile"};
    faults::begin();
    ASSERT_EQ(createNew(), NAPI_OK);
    std::vector<Call> calls = faults::end();
    std::string parent = world.root();
    auto at = calls.begin();
    for (const std::string& folder : made) {
        std::string path = world.root() + "/" + folder;
        at = std::find_if(at, calls.end(), [&](const Call& call) {
            return call.function == "mkdir" && call.from.name == path;
        });
        ASSERT_NE(at, calls.end()) << folder;
        at = std::find_if(at, calls.end(), [&](const Call& call) {
            return call.function == "fsync" && call.from.inode == replay::inodeOf(parent);
        });
        ASSERT_NE(at, calls.end()) << folder;
        parent = path;
    }
}

} // namespace
