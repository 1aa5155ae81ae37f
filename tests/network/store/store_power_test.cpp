// What a loss of power leaves of a change. The calls of the change are recorded as it runs, and put
// together again as a disk may do it that promises no more than the calls say: a file's bytes are
// safe after fsync of the file, a folder's entries after fsync of the folder; of all other changes,
// any may have reached the disk and any may not. One rename is one change.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <set>
#include <sys/stat.h>

#include "network/store/store_faults.h"
#include "network/store/store_world.h"

namespace {

using faults::Call;

ino_t inodeOf(const std::string& path)
{
    struct stat status
    {};
    return lstat(path.c_str(), &status) == 0 ? status.st_ino : 0;
}

// The disk: folders by inode with their entries, and the files whose bytes are safe.
struct Disk
{
    std::map<ino_t, std::map<std::string, ino_t>> folders;
    std::set<ino_t> safeFiles;
};

// Entries that take new values together; inode 0 is no entry.
struct EntryChange
{
    struct Assignment
    {
        faults::Place place;
        ino_t inode;
    };
    std::vector<Assignment> assignments;
    std::set<ino_t> unsynced; // the folders that still have to be synced

    bool isSafe() const { return unsynced.empty(); }
};

// Replays recorded calls, and knows what is safe and what is not after each.
class Replay
{
public:
    explicit Replay(const Disk& start) : m_disk(start), m_now(start) {}

    void run(const Call& call)
    {
        if (call.result < 0)
            return;
        if (call.function == "mkdirat" || call.function == "openat")
            make(call);
        else if (call.function == "unlinkat")
            add({{{call.from, 0}}, {}});
        else if (call.function == "renameat2")
            rename(call);
        else if (call.function == "fsync")
            sync(call.from.inode);
    }

    // Calls `visit` with every disk that a loss of power now may leave.
    template <typename Visit> void forEachOutcome(Visit visit) const
    {
        std::vector<std::size_t> open;
        for (std::size_t i = 0; i < m_changes.size(); ++i)
            if (!m_changes[i].isSafe())
                open.push_back(i);
        ASSERT_LE(open.size(), 12u);
        for (std::size_t chosen = 0; chosen < std::size_t(1) << open.size(); ++chosen)
            visit(outcome(open, chosen));
    }

private:
    static void apply(const EntryChange& change, Disk* disk)
    {
        for (const auto& [place, inode] : change.assignments) {
            if (inode)
                disk->folders[place.inode][place.name] = inode;
            else
                disk->folders[place.inode].erase(place.name);
        }
    }

    Disk outcome(const std::vector<std::size_t>& open, std::size_t chosen) const
    {
        Disk disk = m_disk;
        disk.safeFiles = m_now.safeFiles;
        for (std::size_t i = 0; i < m_changes.size(); ++i) {
            auto at = std::find(open.begin(), open.end(), i);
            if (at == open.end() || (chosen >> (at - open.begin()) & 1))
                apply(m_changes[i], &disk);
        }
        return disk;
    }

    void add(EntryChange change)
    {
        for (const auto& assignment : change.assignments)
            change.unsynced.insert(assignment.place.inode);
        apply(change, &m_now);
        m_changes.push_back(change);
    }

    ino_t lookUp(const faults::Place& place)
    {
        auto& entries = m_now.folders[place.inode];
        auto found = entries.find(place.name);
        return found == entries.end() ? 0 : found->second;
    }

    void make(const Call& call)
    {
        if (lookUp(call.from) != 0)
            return; // opened, not made
        if (call.from.inode != 0)
            add({{{call.from, call.made}}, {}});
    }

    void rename(const Call& call)
    {
        ino_t moved = lookUp(call.from), other = lookUp(call.to);
        bool isExchange = call.flags & RENAME_EXCHANGE;
        add({{{call.to, moved}, {call.from, isExchange ? other : 0}}, {}});
    }

    void sync(ino_t inode)
    {
        if (m_now.folders.count(inode) == 0)
            m_now.safeFiles.insert(inode);
        for (EntryChange& change : m_changes)
            change.unsynced.erase(inode);
    }

    Disk m_disk, m_now;
    std::vector<EntryChange> m_changes;
};

enum class Record { Absent, Damaged, Old, New };

struct Change
{
    const char* label;
    int (*run)();
    // The profiles that it concerns, and what each may be while it goes on and must be afterwards.
    std::map<std::string, Record> before, after;
};

int create()
{
    NetworkProfile record = uniformRecord(5);
    return NAPI_CreateProfile("New", &record, 0, 0);
}

int modify()
{
    NetworkProfile record = uniformRecord(5);
    return NAPI_ModifyProfile("A", &record, 0, 0);
}

const Change changes[] = {
    {"Create",
     create,
     {{"A", Record::Old}, {"New", Record::Absent}},
     {{"A", Record::Old}, {"New", Record::New}}},
    {"Modify", modify, {{"A", Record::Old}}, {{"A", Record::New}}},
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
        m_store = inodeOf(world.profiles());
        ino_t folder = inodeOf(world.profiles() + "/A");
        m_oldRecord = inodeOf(world.record("A"));
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
        Replay replay(start);
        for (const Call& call : recorded) {
            replay.run(call);
            replay.forEachOutcome([&](const Disk& disk) {
                auto state = stateOn(disk);
                wrong += state != GetParam().before && state != GetParam().after;
            });
        }
        replay.forEachOutcome(
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
    ASSERT_EQ(create(), NAPI_OK);
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
            return call.function == "fsync" && call.from.inode == inodeOf(parent);
        });
        ASSERT_NE(at, calls.end()) << folder;
        parent = path;
    }
}

} // namespace
