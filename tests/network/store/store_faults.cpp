#include "network/store/store_faults.h"

#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <new>

#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace faults {

namespace {

thread_local bool isWatching = false;
thread_local Plan plan;
thread_local std::vector<Call> calls;

// The watching itself makes system calls.
class Pause
{
public:
    Pause() : m_before(isWatching) { isWatching = false; }
    ~Pause() { isWatching = m_before; }

private:
    bool m_before;
};

ino_t inodeOf(int fd)
{
    struct stat status
    {};
    return fstat(fd, &status) == 0 ? status.st_ino : 0;
}

ino_t inodeAt(int folder, const char* name)
{
    struct stat status
    {};
    return fstatat(folder, name, &status, AT_SYMLINK_NOFOLLOW) == 0 ? status.st_ino : 0;
}

bool isDue(Fault fault)
{
    if (fault == Fault::Die && plan.thenDie && calls.size() == plan.alsoAt)
        return true;
    return plan.fault == fault &&
           (calls.size() == plan.at || (calls.size() == plan.alsoAt && !plan.thenDie));
}

// In memory that forked children share.
class Tally
{
public:
    static Tally& instance()
    {
        static Tally tally;
        return tally;
    }

    ~Tally()
    {
        for (const auto& [what, number] : m_numbers)
            std::printf("%ld %s\n", number->load(), what.c_str());
    }

    // Before the fork, or the child counts for itself.
    std::atomic<long>& of(const std::string& what)
    {
        std::atomic<long>*& number = m_numbers[what];
        if (!number)
            number = new (::mmap(nullptr, sizeof(std::atomic<long>), PROT_READ | PROT_WRITE,
                                 MAP_SHARED | MAP_ANONYMOUS, -1, 0)) std::atomic<long>(0);
        return *number;
    }

private:
    std::map<std::string, std::atomic<long>*> m_numbers;
};

const char faultsName[] = "faults injected";

} // namespace

bool isLong()
{
    return std::getenv("VORN_TEST_LONG") != nullptr;
}

void count(const char* what, long number)
{
    const Pause pause;
    Tally::instance().of(what) += number;
}

void begin(const Plan& newPlan)
{
    plan = newPlan;
    calls.clear();
    count(faultsName, 0);
    isWatching = true;
}

std::vector<Call> end()
{
    isWatching = false;
    return calls;
}

namespace {

Place placeOf(int folder, const char* name)
{
    return {folder == AT_FDCWD ? 0 : inodeOf(folder), name};
}

// Carries out one watched call, or what the plan has for it. `note` completes the record of a call
// that was carried out.
template <typename Result, typename Real, typename Note>
Result watch(Call call, Real real, Note note)
{
    Pause pause;
    if (isDue(Fault::Die)) {
        count(faultsName);
        _exit(deathStatus);
    }
    if (isDue(Fault::Fail) || isDue(Fault::Interrupt)) {
        count(faultsName);
        errno = isDue(Fault::Fail) ? plan.error : EINTR;
        call.result = -1;
        calls.push_back(call);
        return static_cast<Result>(-1);
    }
    Result result = real();
    int error = errno;
    call.result = static_cast<long>(result);
    note(&call);
    calls.push_back(call);
    errno = error;
    return result;
}

} // namespace

template <typename Result, typename Real> static Result watch(Call call, Real real)
{
    return watch<Result>(std::move(call), real, [](Call*) {});
}

namespace {

Call callOn(const char* function, int fd)
{
    Pause pause;
    Call call;
    call.function = function;
    call.from.inode = inodeOf(fd);
    return call;
}

Call callAt(const char* function, int folder, const char* name, unsigned int flags = 0)
{
    Pause pause;
    Call call;
    call.function = function;
    call.from = placeOf(folder, name);
    call.flags = flags;
    return call;
}

} // namespace

} // namespace faults

// The C library's function behind this one of the same name.
#define REAL(name)                                                                                 \
    static const auto real = reinterpret_cast<decltype(&::name)>(dlsym(RTLD_NEXT, #name));         \
    using namespace faults

#define INTERPOSED extern "C" __attribute__((visibility("default")))

INTERPOSED int openat(int folder, const char* name, int flags, ...)
{
    REAL(openat);
    va_list rest;
    va_start(rest, flags);
    const bool isMaking = flags & O_CREAT || (flags & O_TMPFILE) == O_TMPFILE;
    mode_t mode = isMaking ? va_arg(rest, mode_t) : 0;
    va_end(rest);
    auto call = [&] { return real(folder, name, flags, mode); };
    if (!isWatching)
        return call();
    return watch<int>(callAt("openat", folder, name, static_cast<unsigned int>(flags)), call,
                      [](Call* noted) {
                          if (noted->result >= 0)
                              noted->made = inodeOf(static_cast<int>(noted->result));
                      });
}

INTERPOSED int open(const char* name, int flags, ...)
{
    REAL(open);
    va_list rest;
    va_start(rest, flags);
    mode_t mode = flags & O_CREAT ? va_arg(rest, mode_t) : 0;
    va_end(rest);
    auto call = [&] { return real(name, flags, mode); };
    return isWatching ? watch<int>(callAt("open", AT_FDCWD, name), call) : call();
}

INTERPOSED int mkdir(const char* name, mode_t mode) noexcept
{
    REAL(mkdir);
    auto call = [&] { return real(name, mode); };
    return isWatching ? watch<int>(callAt("mkdir", AT_FDCWD, name), call) : call();
}

INTERPOSED int mkdirat(int folder, const char* name, mode_t mode) noexcept
{
    REAL(mkdirat);
    auto call = [&] { return real(folder, name, mode); };
    if (!isWatching)
        return call();
    return watch<int>(callAt("mkdirat", folder, name), call,
                      [&](Call* noted) { noted->made = inodeAt(folder, name); });
}

INTERPOSED int fchmod(int fd, mode_t mode) noexcept
{
    REAL(fchmod);
    auto call = [&] { return real(fd, mode); };
    return isWatching ? watch<int>(callOn("fchmod", fd), call) : call();
}

INTERPOSED int fchmodat(int folder, const char* name, mode_t mode, int flags) noexcept
{
    REAL(fchmodat);
    auto call = [&] { return real(folder, name, mode, flags); };
    return isWatching ? watch<int>(callAt("fchmodat", folder, name), call) : call();
}

INTERPOSED ssize_t write(int fd, const void* bytes, std::size_t length)
{
    REAL(write);
    if (!isWatching)
        return real(fd, bytes, length);
    std::size_t asked = isDue(Fault::Short) ? length / 2 : length;
    return watch<ssize_t>(
        callOn("write", fd), [&] { return real(fd, bytes, asked); },
        [](Call* noted) { noted->bytes = static_cast<std::size_t>(noted->result); });
}

INTERPOSED int fsync(int fd)
{
    REAL(fsync);
    auto call = [&] { return real(fd); };
    return isWatching ? watch<int>(callOn("fsync", fd), call) : call();
}

INTERPOSED int renameat2(int folder, const char* name, int newFolder, const char* newName,
                         unsigned int flags) noexcept
{
    REAL(renameat2);
    auto call = [&] { return real(folder, name, newFolder, newName, flags); };
    if (!isWatching)
        return call();
    Call noted = callAt("renameat2", folder, name, flags);
    {
        Pause pause;
        noted.to = placeOf(newFolder, newName);
    }
    return watch<int>(noted, call);
}

INTERPOSED int renameat(int folder, const char* name, int newFolder, const char* newName) noexcept
{
    REAL(renameat);
    auto call = [&] { return real(folder, name, newFolder, newName); };
    if (!isWatching)
        return call();
    Call noted = callAt("renameat", folder, name);
    {
        Pause pause;
        noted.to = placeOf(newFolder, newName);
    }
    return watch<int>(noted, call);
}

// `name` is the way to an open file.
INTERPOSED int linkat(int folder, const char* name, int newFolder, const char* newName,
                      int flags) noexcept
{
    REAL(linkat);
    auto call = [&] { return real(folder, name, newFolder, newName, flags); };
    if (!isWatching)
        return call();
    Call noted = callAt("linkat", folder, name);
    {
        Pause pause;
        noted.to = placeOf(newFolder, newName);
    }
    return watch<int>(noted, call, [&](Call* made) { made->made = inodeAt(newFolder, newName); });
}

INTERPOSED int unlink(const char* name) noexcept
{
    REAL(unlink);
    auto call = [&] { return real(name); };
    return isWatching ? watch<int>(callAt("unlink", AT_FDCWD, name), call) : call();
}

INTERPOSED int unlinkat(int folder, const char* name, int flags) noexcept
{
    REAL(unlinkat);
    auto call = [&] { return real(folder, name, flags); };
    if (!isWatching)
        return call();
    return watch<int>(callAt("unlinkat", folder, name, static_cast<unsigned int>(flags)), call);
}

INTERPOSED int fstatat(int folder, const char* name, struct stat* status, int flags) noexcept
{
    REAL(fstatat);
    auto call = [&] { return real(folder, name, status, flags); };
    return isWatching ? watch<int>(callAt("fstatat", folder, name), call) : call();
}

INTERPOSED int flock(int fd, int operation) noexcept
{
    REAL(flock);
    auto call = [&] { return real(fd, operation); };
    // Giving the lock back cannot fail.
    bool isWatched = isWatching && operation != LOCK_UN;
    return isWatched ? watch<int>(callOn("flock", fd), call) : call();
}

INTERPOSED ssize_t getdents64(int fd, void* buffer, std::size_t length) noexcept
{
    REAL(getdents64);
    auto call = [&] { return real(fd, buffer, length); };
    return isWatching ? watch<ssize_t>(callOn("getdents64", fd), call) : call();
}

INTERPOSED ssize_t read(int fd, void* buffer, std::size_t length)
{
    REAL(read);
    auto call = [&] { return real(fd, buffer, length); };
    return isWatching ? watch<ssize_t>(callOn("read", fd), call) : call();
}
