#include "base/locked_folder.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include "base/durable_file.h"

namespace base {

static int lockExclusively(int fd)
{
    return retried([fd] { return flock(fd, LOCK_EX); }) == 0 ? 0 : errno;
}

// While this writer waited, the folder may have been removed or put elsewhere.
static bool isStillAt(int fd, const std::string& path)
{
    struct stat mine, there;
    return fstat(fd, &mine) == 0 && stat(path.c_str(), &there) == 0 &&
           mine.st_dev == there.st_dev && mine.st_ino == there.st_ino;
}

int LockedFolder::open(const std::string& path)
{
    for (int attempt = 0; attempt < 16; ++attempt) {
        m_fd = openFolder(path);
        if (!m_fd.isOpen())
            return errno;
        if (int error = lockExclusively(m_fd.get()))
            return error;
        if (isStillAt(m_fd.get(), path))
            return 0;
    }
    return ENOENT;
}

LockedFolder::~LockedFolder()
{
    // Said aloud: closing alone would leave the lock to a child process forked by another thread.
    if (m_fd.isOpen())
        flock(m_fd.get(), LOCK_UN);
}

} // namespace base
