#include "network/network_config.h"

#include <cerrno>
#include <cstdio>
#include <mutex>

#include <pthread.h>
#include <sys/stat.h>

#include "network/napi_host.h"
#include "network/network_config_reader.h"

namespace network {

namespace {

constexpr off_t missing = -1;

// Tells one state of a file from the next without reading it.
struct FileVersion
{
    std::string path;
    dev_t device = 0;
    ino_t inode = 0;
    off_t size = missing;
    timespec modified = {};
    timespec changed = {};
};

// The mutex is held over a fork, so that the child finds it free.
struct Cache
{
    std::mutex mutex;
    FileVersion known;
    std::string told;
    std::shared_ptr<const NetworkConfig> config = std::make_shared<NetworkConfig>();

    static Cache& instance()
    {
        static Cache* cache = [] {
            auto created = new Cache;
            ::pthread_atfork(lock, unlock, unlock);
            return created;
        }();
        return *cache;
    }
    static void lock() { instance().mutex.lock(); }
    static void unlock() { instance().mutex.unlock(); }
};

bool same(const timespec& a, const timespec& b)
{
    return a.tv_sec == b.tv_sec && a.tv_nsec == b.tv_nsec;
}

// Where the root is no folder, the call that needs it says so.
bool isMissing(int error)
{
    return error == ENOENT || error == ENOTDIR;
}

FileVersion versionOf(const std::string& path)
{
    struct stat status = {};
    bool there = !path.empty() && (::stat(path.c_str(), &status) == 0 || !isMissing(errno));
    off_t size = there ? status.st_size : missing;
    return {path, status.st_dev, status.st_ino, size, status.st_mtim, status.st_ctim};
}

// A file that cannot be opened may be one that there was no descriptor for, so it is tried again
// each time; a person hears of it once.
void read(const FileVersion& version, Cache* cache)
{
    base::JsonDocument document = version.size == missing
                                      ? base::JsonDocument::parse("{}", version.path)
                                      : base::JsonDocument::read(version.path);
    cache->config = std::make_shared<NetworkConfig>(readNetworkConfig(document));
    bool readable = document.state() != base::JsonDocument::State::Unreadable;
    cache->known = readable ? version : FileVersion{};
    std::string text;
    for (const base::JsonProblem& problem : document.problems())
        text += base::describe(version.path, problem) + '\n';
    if (readable || text != cache->told)
        std::fputs(text.c_str(), stderr);
    cache->told = text;
}

} // namespace

static bool operator==(const FileVersion& a, const FileVersion& b)
{
    return a.path == b.path && a.device == b.device && a.inode == b.inode && a.size == b.size &&
           same(a.modified, b.modified) && same(a.changed, b.changed);
}

std::shared_ptr<const NetworkConfig> networkConfig()
{
    Cache& cache = Cache::instance();
    std::lock_guard<std::mutex> guard(cache.mutex);
    // The version is taken before the file is read: a change in between is read again next time.
    FileVersion version = versionOf(networkConfigPath());
    if (!(version == cache.known))
        read(version, &cache);
    return cache.config;
}

} // namespace network
