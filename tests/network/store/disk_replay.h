// What a loss of power may leave. The calls of a change are recorded as it runs, and put together
// again as a disk may do it that promises no more than the calls say: a file's bytes are safe after
// fsync of the file, a folder's entries after fsync of the folder; of all other changes, any may
// have reached the disk and any may not. One rename is one change.
#ifndef TESTS_NETWORK_DISK_REPLAY_H
#define TESTS_NETWORK_DISK_REPLAY_H

#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "network/store/store_faults.h"

namespace replay {

// 0 for what is not there.
ino_t inodeOf(const std::string& path);

// The disk: folders by inode with their entries, and the files whose bytes are safe.
struct Disk
{
    std::map<ino_t, std::map<std::string, ino_t>> folders;
    std::set<ino_t> safeFiles;
};

// What is in the folder and below it, all of it safe.
Disk diskOf(const std::string& folder);

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

    void run(const faults::Call& call);

    // Calls `visit` with every disk that a loss of power now may leave.
    void forEachOutcome(const std::function<void(const Disk&)>& visit) const;

private:
    Disk outcome(const std::vector<std::size_t>& open, std::size_t chosen) const;
    void add(EntryChange change);
    ino_t lookUp(const faults::Place& place);
    void make(const faults::Call& call);
    void rename(const faults::Call& call);
    void sync(ino_t inode);

    Disk m_disk, m_now;
    std::vector<EntryChange> m_changes;
};

} // namespace replay

#endif
