#include "base/locked_folder.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <mutex>
#include <pthread.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <thread>

#include "base/durable_file.h"

namespace base {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

// All that are open in this process. A descriptor that a forked child inherits shares the lock, so
// the child closes what it finds in this list; for that, no fork comes between the opening of a
// folder and its entry.
class HeldFolders
{
public:
    static HeldFolders& instance()
    {
        static HeldFolders* held = [] {
            auto created = new HeldFolders;
            ::pthread_atfork(beforeFork, afterForkInParent, afterForkInChild);
            return created;
        }();
        return *held;
    }

    template <typename Open> void add(LockedFolder* folder, Open open)
    {
        const std::lock_guard<std::mutex> guard(m_mutex);
        folder->m_fd = open();
        folder->m_next = m_first;
        m_first = folder;
    }

    // Nothing happens to one that is not in the list.
    void remove(LockedFolder* folder)
    {
        const std::lock_guard<std::mutex> guard(m_mutex);
        LockedFolder** at = &m_first;
        while (*at && *at != folder)
            at = &(*at)->m_next;
        if (*at)
            *at = folder->m_next;
        folder->m_fd.reset();
    }

private:
    static void beforeFork() { instance().m_mutex.lock(); }
    static void afterForkInParent() { instance().m_mutex.unlock(); }
    static void afterForkInChild()
    {
        for (LockedFolder* one = instance().m_first; one; one = one->m_next)
            one->m_fd.reset();
        instance().m_first = nullptr;
        instance().m_mutex.unlock();
    }

    std::mutex m_mutex;
    LockedFolder* m_first = nullptr;
};

namespace {

// The kernel's own waiting has no limit, and a signal that would end it belongs to the application.
int lockUntil(int fd, Clock::time_point deadline)
{
    constexpr milliseconds longestPause{8};
    for (milliseconds pause{1};; pause = std::min(2 * pause, longestPause)) {
        if (retried([fd] { return ::flock(fd, LOCK_EX | LOCK_NB); }) == 0)
            return 0;
        if (errno != EWOULDBLOCK)
            return errno;
        const Clock::duration left = deadline - Clock::now();
        if (left <= Clock::duration::zero())
            return ETIMEDOUT;
        std::this_thread::sleep_for(std::min<Clock::duration>(pause, left));
    }
}

// While this writer waited, the folder may have been removed or put elsewhere.
bool isStillAt(int fd, const std::string& path)
{
    struct stat mine, there;
    return ::fstat(fd, &mine) == 0 && ::stat(path.c_str(), &there) == 0 &&
           mine.st_dev == there.st_dev && mine.st_ino == there.st_ino;
}

} // namespace

int LockedFolder::openOnce(const std::string& path)
{
    int error = 0;
    HeldFolders::instance().add(this, [&] {
        UniqueFd folder = openFolder(path);
        error = folder.isOpen() ? 0 : errno;
        return folder;
    });
    return error;
}

int LockedFolder::open(const std::string& path, milliseconds patience)
{
    const Clock::time_point deadline = Clock::now() + patience;
    int error = ENOENT;
    for (int attempt = 0; attempt < 16; ++attempt) {
        error = openOnce(path);
        if (error == 0)
            error = lockUntil(m_fd.get(), deadline);
        if (error == 0 && isStillAt(m_fd.get(), path))
            return 0;
        close();
        if (error != 0)
            return error;
    }
    return ENOENT;
}

void LockedFolder::close()
{
    // Said aloud: closing alone would leave the lock to a child whose fork no handler has seen.
    if (m_fd.isOpen())
        ::flock(m_fd.get(), LOCK_UN);
    HeldFolders::instance().remove(this);
}

LockedFolder::~LockedFolder()
{
    close();
}

} // namespace base
