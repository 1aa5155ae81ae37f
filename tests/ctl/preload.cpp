// Preloaded into vornctl by its tests: writes down the link calls that reach the network API, and
// plays a disk that is full or mounted read-only, files that may not be opened
// (VORN_TEST_FORBIDDEN, a part of their path), files that cannot be read (VORN_TEST_FAULTY),
// folders that the disk does not confirm (VORN_TEST_UNSYNCED, the end of their path), a user whom
// no file belongs to (VORN_TEST_USER) and a kill before a rename (VORN_TEST_KILLED), which takes no
// privileges, and none that have to be given up, this way. The SIM card is that of VORN_TEST_SIM,
// whatever the machine has.
#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform_export.h"

namespace {

template <typename Function> Function next(const char* name)
{
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

void record(const char* call, const char* argument, int result)
{
    const char* path = std::getenv("VORN_TEST_CALLS");
    FILE* calls = path ? std::fopen(path, "ae") : nullptr;
    if (!calls)
        return;
    std::fprintf(calls, "%s(%s) = %d\n", call, argument, result);
    std::fclose(calls);
}

bool diskIs(const char* state)
{
    const char* disk = std::getenv("VORN_TEST_DISK");
    return disk && std::strcmp(disk, state) == 0;
}

bool isBelowRoot(int fd)
{
    char link[64], path[4096];
    std::snprintf(link, sizeof link, "/proc/self/fd/%d", fd);
    const ssize_t length = readlink(link, path, sizeof path);
    const char* root = std::getenv("VORN_ROOT");
    return length > 0 && root && std::strlen(root) <= static_cast<std::size_t>(length) &&
           std::strncmp(path, root, std::strlen(root)) == 0;
}

std::string pathOf(int fd)
{
    char link[64], path[4096] = "";
    std::snprintf(link, sizeof link, "/proc/self/fd/%d", fd);
    return readlink(link, path, sizeof path - 1) > 0 ? path : "";
}

bool isNamed(const char* variable, const std::string& path)
{
    const char* part = std::getenv(variable);
    return part && path.find(part) != std::string::npos;
}

bool isForbidden(int folder, const char* path)
{
    if (!std::getenv("VORN_TEST_FORBIDDEN"))
        return false;
    return isNamed("VORN_TEST_FORBIDDEN", *path == '/' ? path : pathOf(folder) + '/' + path);
}

int refused(int error)
{
    errno = error;
    return -1;
}

} // namespace

namespace napihost {

VORN_PLATFORM_API std::string simOperator(int timeLimitMs);

std::string simOperator(int /*timeLimitMs*/)
{
    const char* network = std::getenv("VORN_TEST_SIM");
    return network ? network : "";
}

} // namespace napihost

extern "C" {

VORN_PLATFORM_API int NAPI_OpenLink(const char* name)
{
    const int result = next<int (*)(const char*)>("NAPI_OpenLink")(name);
    record("OpenLink", name, result);
    return result;
}

VORN_PLATFORM_API int NAPI_CloseLink(int link)
{
    const int result = next<int (*)(int)>("NAPI_CloseLink")(link);
    record("CloseLink", std::to_string(link).c_str(), result);
    return result;
}

VORN_PLATFORM_API int NAPI_Fini()
{
    const int result = next<int (*)()>("NAPI_Fini")();
    record("Fini", "", result);
    return result;
}

VORN_PLATFORM_API ssize_t write(int fd, const void* bytes, std::size_t count)
{
    if (fd > STDERR_FILENO && diskIs("full") && isBelowRoot(fd))
        return refused(ENOSPC);
    return next<ssize_t (*)(int, const void*, std::size_t)>("write")(fd, bytes, count);
}

VORN_PLATFORM_API int mkdirat(int folder, const char* path, mode_t mode)
{
    if (diskIs("read-only"))
        return refused(EROFS);
    return next<int (*)(int, const char*, mode_t)>("mkdirat")(folder, path, mode);
}

VORN_PLATFORM_API int mkdir(const char* path, mode_t mode)
{
    return mkdirat(AT_FDCWD, path, mode);
}

VORN_PLATFORM_API int renameat2(int from, const char* name, int to, const char* newName,
                                unsigned int flags)
{
    using Function = int (*)(int, const char*, int, const char*, unsigned int);
    if (diskIs("read-only"))
        return refused(EROFS);
    if (std::getenv("VORN_TEST_KILLED"))
        std::raise(SIGKILL);
    return next<Function>("renameat2")(from, name, to, newName, flags);
}

VORN_PLATFORM_API int renameat(int from, const char* name, int to, const char* newName)
{
    return renameat2(from, name, to, newName, 0);
}

VORN_PLATFORM_API int unlinkat(int folder, const char* path, int flags)
{
    if (diskIs("read-only"))
        return refused(EROFS);
    return next<int (*)(int, const char*, int)>("unlinkat")(folder, path, flags);
}

VORN_PLATFORM_API int openat(int folder, const char* path, int flags, ...)
{
    va_list rest;
    va_start(rest, flags);
    const bool isNameless = (flags & O_TMPFILE) == O_TMPFILE;
    const mode_t mode = flags & O_CREAT || isNameless ? va_arg(rest, mode_t) : 0;
    va_end(rest);
    if (isForbidden(folder, path))
        return refused(EACCES);
    if (isNameless && diskIs("named-only"))
        return refused(EOPNOTSUPP);
    if (diskIs("read-only") && (flags & O_ACCMODE) != O_RDONLY)
        return refused(EROFS);
    return next<int (*)(int, const char*, int, ...)>("openat")(folder, path, flags, mode);
}

VORN_PLATFORM_API int open(const char* path, int flags, ...)
{
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = flags & O_CREAT ? va_arg(rest, mode_t) : 0;
    va_end(rest);
    if (isForbidden(AT_FDCWD, path))
        return refused(EACCES);
    return next<int (*)(const char*, int, ...)>("open")(path, flags, mode);
}

VORN_PLATFORM_API int faccessat(int folder, const char* path, int mode, int flags) noexcept
{
    if (isForbidden(folder, path))
        return refused(EACCES);
    return next<int (*)(int, const char*, int, int)>("faccessat")(folder, path, mode, flags);
}

// Of a folder that may not be entered, only what is in it is out of reach.
VORN_PLATFORM_API int stat(const char* path, struct stat* status) noexcept
{
    const char* part = std::getenv("VORN_TEST_FORBIDDEN");
    const char* found = part ? std::strstr(path, part) : nullptr;
    if (found && found[std::strlen(part)] != '\0')
        return refused(EACCES);
    return next<int (*)(const char*, struct stat*)>("stat")(path, status);
}

VORN_PLATFORM_API uid_t geteuid() noexcept
{
    const char* user = std::getenv("VORN_TEST_USER");
    return user ? static_cast<uid_t>(std::atoi(user)) : next<uid_t (*)()>("geteuid")();
}

VORN_PLATFORM_API int fsync(int fd)
{
    const char* end = std::getenv("VORN_TEST_UNSYNCED");
    const std::string path = end ? pathOf(fd) : "";
    if (end && path.size() >= std::strlen(end) &&
        path.compare(path.size() - std::strlen(end), std::string::npos, end) == 0)
        return refused(EIO);
    return next<int (*)(int)>("fsync")(fd);
}

VORN_PLATFORM_API ssize_t read(int fd, void* bytes, std::size_t count)
{
    if (std::getenv("VORN_TEST_FAULTY") && isNamed("VORN_TEST_FAULTY", pathOf(fd)))
        return refused(EIO);
    return next<ssize_t (*)(int, void*, std::size_t)>("read")(fd, bytes, count);
}

} // extern "C"
