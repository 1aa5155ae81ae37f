#include "network/store/disk_replay.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace replay {

using faults::Call;
using faults::Place;

ino_t inodeOf(const std::string& path)
{
    struct stat status
    {};
    return lstat(path.c_str(), &status) == 0 ? status.st_ino : 0;
}

Disk diskOf(const std::string& folder)
{
    Disk disk;
    disk.folders[inodeOf(folder)];
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        const ino_t inode = inodeOf(entry.path());
        disk.folders[inodeOf(entry.path().parent_path())][entry.path().filename()] = inode;
        if (entry.is_directory())
            disk.folders[inode];
        else
            disk.safeFiles.insert(inode);
    }
    return disk;
}

void Replay::run(const Call& call)
{
    if (call.result < 0)
        return;
    const bool isNameless = call.function == "openat" && (call.flags & O_TMPFILE) == O_TMPFILE;
    if (call.function == "mkdirat" || (call.function == "openat" && !isNameless))
        make(call);
    else if (call.function == "unlinkat")
        add({{{call.from, 0}}, {}});
    else if (call.function == "linkat")
        add({{{call.to, call.made}}, {}});
    else if (call.function == "renameat2" || call.function == "renameat")
        rename(call);
    else if (call.function == "fsync")
        sync(call.from.inode);
}

void Replay::forEachOutcome(const std::function<void(const Disk&)>& visit) const
{
    std::vector<std::size_t> open;
    for (std::size_t i = 0; i < m_changes.size(); ++i)
        if (!m_changes[i].isSafe())
            open.push_back(i);
    ASSERT_LE(open.size(), 12u);
    for (std::size_t chosen = 0; chosen < std::size_t(1) << open.size(); ++chosen) {
        faults::count("disks after a loss of power");
        visit(outcome(open, chosen));
    }
}

namespace {

void apply(const EntryChange& change, Disk* disk)
{
    for (const auto& [place, inode] : change.assignments) {
        if (inode)
            disk->folders[place.inode][place.name] = inode;
        else
            disk->folders[place.inode].erase(place.name);
    }
}

} // namespace

Disk Replay::outcome(const std::vector<std::size_t>& open, std::size_t chosen) const
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

void Replay::add(EntryChange change)
{
    for (const auto& assignment : change.assignments)
        change.unsynced.insert(assignment.place.inode);
    apply(change, &m_now);
    m_changes.push_back(change);
}

ino_t Replay::lookUp(const Place& place)
{
    auto& entries = m_now.folders[place.inode];
    auto found = entries.find(place.name);
    return found == entries.end() ? 0 : found->second;
}

void Replay::make(const Call& call)
{
    if (lookUp(call.from) != 0)
        return; // opened, not made
    if (call.from.inode != 0)
        add({{{call.from, call.made}}, {}});
}

void Replay::rename(const Call& call)
{
    ino_t moved = lookUp(call.from), other = lookUp(call.to);
    bool isExchange = call.flags & RENAME_EXCHANGE;
    add({{{call.to, moved}, {call.from, isExchange ? other : 0}}, {}});
}

void Replay::sync(ino_t inode)
{
    if (m_now.folders.count(inode) == 0)
        m_now.safeFiles.insert(inode);
    for (EntryChange& change : m_changes)
        change.unsynced.erase(inode);
}

} // namespace replay
