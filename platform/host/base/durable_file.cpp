#include "base/durable_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "base/rights.h"
#include "base/root.h"

namespace base {

UniqueFd openFolder(const std::string& path)
{
    return UniqueFd(
        retried([&] { return open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC); }));
}

namespace {

std::string parentOf(const std::string& path)
{
    std::size_t slash = path.rfind('/');
    return slash == 0 ? "/" : path.substr(0, slash);
}

int syncFolderAt(const std::string& path)
{
    UniqueFd folder = openFolder(path);
    return folder.isOpen() ? syncFolder(folder.get()) : errno;
}

// The process's umask may take rights away from the owner, too, so that the folder serves nobody.
int makeFolder(const std::string& path, mode_t mode)
{
    struct stat status;
    if (mkdir(path.c_str(), mode) != 0)
        return errno == EEXIST ? 0 : errno;
    if (stat(path.c_str(), &status) != 0)
        return errno;
    if ((status.st_mode & 07777) == mode)
        return 0;
    return fchmodat(AT_FDCWD, path.c_str(), mode, 0) == 0 ? 0 : errno;
}

// A program that was killed before it had given a new folder its mode may leave one that not even
// its owner can enter. Where that is empty, it goes, and a whole one takes its place; what somebody
// has closed on purpose has something in it.
bool removeUnfinished(const std::string& path, const struct stat& status)
{
    return isClosedToOwner(status) && rmdir(path.c_str()) == 0;
}

} // namespace

int makeFolders(const std::string& path, mode_t mode)
{
    struct stat status;
    const int missing = stat(path.c_str(), &status) == 0 ? 0 : errno;
    if (missing == 0 && !removeUnfinished(path, status))
        return S_ISDIR(status.st_mode) ? 0 : ENOTDIR;
    // EACCES: a folder above may be the unfinished one.
    const bool isToBeMade = missing == 0 || missing == ENOENT || missing == EACCES;
    if (!isToBeMade || path.rfind('/') == std::string::npos)
        return missing;
    std::string parent = parentOf(path);
    if (int error = makeFolders(parent))
        return error;
    if (int error = makeFolder(path, mode))
        return error;
    return syncFolderAt(parent);
}

int makeRoot()
{
    return makeFolders(rootFolder(), 0711);
}

int writeAll(int fd, std::string_view bytes)
{
    while (!bytes.empty()) {
        ssize_t written = retried([&] { return write(fd, bytes.data(), bytes.size()); });
        if (written < 0)
            return errno;
        if (written == 0)
            return EIO;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return 0;
}

int syncFile(int fd)
{
    return retried([fd] { return fsync(fd); }) == 0 ? 0 : errno;
}

int syncFolder(int fd)
{
    // Some file systems keep no folders of their own that could be synced, and say EINVAL.
    int error = syncFile(fd);
    return error == EINVAL ? 0 : error;
}

int setMode(int fd, mode_t mode)
{
    struct stat status;
    if (fstat(fd, &status) != 0)
        return errno;
    if ((status.st_mode & 07777) == mode)
        return 0; // the usual case, and looking is cheaper than one more change for the disk
    return fchmod(fd, mode) == 0 ? 0 : errno;
}

int createFile(int folder, const char* name, std::string_view bytes, mode_t mode)
{
    UniqueFd file(retried([&] {
        return openat(folder, name, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, mode);
    }));
    if (!file.isOpen())
        return errno;
    if (int error = setMode(file.get(), mode))
        return error;
    if (int error = writeAll(file.get(), bytes))
        return error;
    return syncFile(file.get());
}

std::string pendingName(const std::string& name)
{
    return "." + name + ".new";
}

int replaceFile(int folder, const std::string& name, std::string_view bytes, mode_t mode)
{
    // One writer at a time holds the folder, so one name serves all.
    std::string pending = pendingName(name);
    if (unlinkat(folder, pending.c_str(), 0) != 0 && errno != ENOENT)
        return errno;
    int error = createFile(folder, pending.c_str(), bytes, mode);
    if (error == 0 && renameat(folder, pending.c_str(), folder, name.c_str()) != 0)
        error = errno;
    if (error != 0) {
        unlinkat(folder, pending.c_str(), 0);
        return error;
    }
    return syncFolder(folder) == 0 ? 0 : notSynced;
}

} // namespace base
