#include "network/network_config.h"

#include <cstdio>
#include <mutex>

#include <pthread.h>
#include <sys/stat.h>

#include "network/napi_host.h"
#include "network/network_config_reader.h"

namespace network {

namespace {

// Tells one state of a file from the next without reading it.
struct FileVersion
{
    std::string path;
    dev_t device = 0;
    ino_t inode = 0;
    off_t size = -1; // -1: no such file
    timespec modified = {};
    timespec changed = {};
};

// The mutex is held over a fork, so that the child finds it free.
struct Cache
{
    std::mutex mutex;
    FileVersion known;
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

} // namespace

static bool same(const timespec& a, const timespec& b)
{
    return a.tv_sec == b.tv_sec && a.tv_nsec == b.tv_nsec;
}

static bool operator==(const FileVersion& a, const FileVersion& b)
{
    return a.path == b.path && a.device == b.device && a.inode == b.inode && a.size == b.size &&
           same(a.modified, b.modified) && same(a.changed, b.changed);
}

static FileVersion versionOf(const std::string& path)
{
    struct stat status;
    if (path.empty() || ::stat(path.c_str(), &status) != 0)
        return {path, 0, 0, -1, {}, {}};
    return {path, status.st_dev, status.st_ino, status.st_size, status.st_mtim, status.st_ctim};
}

static std::shared_ptr<const NetworkConfig> readAndTell(const std::string& path)
{
    base::JsonDocument document = base::JsonDocument::read(path);
    auto config = std::make_shared<NetworkConfig>(readNetworkConfig(document));
    for (const base::JsonProblem& problem : document.problems())
        std::fputs((base::describe(path, problem) + '\n').c_str(), stderr);
    return config;
}

std::shared_ptr<const NetworkConfig> networkConfig()
{
    Cache& cache = Cache::instance();
    std::lock_guard<std::mutex> guard(cache.mutex);
    // The version is taken before the file is read: a change in between is read again next time.
    FileVersion version = versionOf(networkConfigPath());
    if (!(version == cache.known)) {
        cache.config =
            version.path.empty() ? std::make_shared<NetworkConfig>() : readAndTell(version.path);
        cache.known = version;
    }
    return cache.config;
}

} // namespace network

std::vector<napihost::Finding> napihost::inspectNetworkConfiguration()
{
    std::vector<Finding> findings;
    std::string path = network::networkConfigPath();
    if (path.empty())
        return findings;
    base::JsonDocument document = base::JsonDocument::read(path);
    network::readNetworkConfig(document);
    for (const base::JsonProblem& problem : document.problems())
        findings.push_back({base::place(path, problem), base::sentence(problem),
                            "correct the file; docs/network-json.md describes it"});
    return findings;
}
