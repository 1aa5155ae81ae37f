// A folder opened for changing what is in it, and locked against everybody else who does the same.
#ifndef BASE_LOCKED_FOLDER_H
#define BASE_LOCKED_FOLDER_H

#include <string>

#include "base/unique_fd.h"

namespace base {

// The lock is advisory (flock) and lies on the folder itself, so there is no lock file to be
// created, swept or forgotten. It excludes other processes and other threads alike, and ends with
// its holder however that ends. Readers do not take it.
class LockedFolder
{
public:
    LockedFolder() = default;
    LockedFolder(const LockedFolder&) = delete;
    LockedFolder& operator=(const LockedFolder&) = delete;
    ~LockedFolder();

    // Opens `path`, an existing folder, and waits until no other writer holds it. Result: 0 or an
    // errno. Call it once for an object.
    int open(const std::string& path);

    // The open folder, for the ...at system calls and for fsync.
    int fd() const { return m_fd.get(); }

private:
    UniqueFd m_fd;
};

} // namespace base

#endif
