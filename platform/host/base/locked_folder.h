// A folder opened for changing what is in it, and locked against everybody else who does the same.
#ifndef BASE_LOCKED_FOLDER_H
#define BASE_LOCKED_FOLDER_H

#include <chrono>
#include <string>

#include "base/unique_fd.h"

namespace base {

// The lock is advisory (flock) and lies on the folder itself, so there is no lock file to be
// created, swept or forgotten. It excludes other processes and other threads alike, and ends with
// its holder however that ends: a child that the holder has forked does not share it, and finds
// the object closed. Readers do not take it. Whoever may read the folder may lock it too, so the
// folder is one that is its owner's alone.
class LockedFolder
{
public:
    // How long a person can be kept waiting for another program that is writing.
    static constexpr std::chrono::milliseconds defaultPatience{10000};

    LockedFolder() = default;
    LockedFolder(const LockedFolder&) = delete;
    LockedFolder& operator=(const LockedFolder&) = delete;
    ~LockedFolder();

    // Opens `path`, an existing folder, and waits until no other writer holds it, `patience` at
    // the longest. Result: 0 or an errno, ETIMEDOUT when it was held all the time; the folder is
    // not open then. Call it once for an object.
    int open(const std::string& path, std::chrono::milliseconds patience = defaultPatience);

    // The open folder, for the ...at system calls and for fsync; -1 when it is not open.
    int fd() const { return m_fd.get(); }

private:
    friend class HeldFolders;
    int openOnce(const std::string& path);
    void close();

    UniqueFd m_fd;
    LockedFolder* m_next = nullptr; // in the list of those that are open
};

} // namespace base

#endif
