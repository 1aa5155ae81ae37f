// Files and folders that outlive a killed process and a lost power supply. Every function is
// thread-safe, blocks while the disk works and, unless it says otherwise, gives 0 or an errno.
#ifndef BASE_DURABLE_FILE_H
#define BASE_DURABLE_FILE_H

#include <cerrno>
#include <string>
#include <string_view>
#include <sys/types.h>

#include "base/unique_fd.h"

namespace base {

// What a function gives, in the place of an errno, when its change stands and everybody sees it,
// but the disk has not confirmed its last step.
inline constexpr int notSynced = -1;

// Repeats a system call that a signal has interrupted; the result of the last one.
template <typename Call> auto retried(Call call) -> decltype(call())
{
    decltype(call()) result;
    do
        result = call();
    while (result == -1 && errno == EINTR);
    return result;
}

// Opens a folder for reading, closed on exec; not open, with errno set, when that fails.
UniqueFd openFolder(const std::string& path);

// Makes the folder `path` (absolute), with exactly `mode`, and those on the way to it that are
// missing, mode 0700, each on the disk when the call returns. One that is there keeps its mode;
// an empty one that its owner, this user, may not enter is made anew.
// ENOTDIR when something else than a folder is in the way.
int makeFolders(const std::string& path, mode_t mode = 0700);

// Makes the root where it is missing: others may pass through it to what is for them, and list
// nothing.
int makeRoot();

// Writes all of `bytes` at the descriptor's position.
int writeAll(int fd, std::string_view bytes);

// Brings what a descriptor stands for to the disk: a file's bytes, or a folder's entries.
int syncFile(int fd);
int syncFolder(int fd);

// Gives a new file or folder its mode where the process's umask has changed it.
int setMode(int fd, mode_t mode);

// Makes the new file `name` in the folder with the given descriptor, with exactly `mode`, and
// brings its bytes to the disk (its entry in the folder is the caller's to sync). EEXIST when there
// is something of that name. What a failure leaves behind is the caller's to remove.
int createFile(int folder, const char* name, std::string_view bytes, mode_t mode);

// Puts `bytes` in the place of the file `name` in the open folder, or makes it: at any instant, and
// after a loss of power, the file is wholly the old one or wholly the new one; the new one is on
// the disk when the call returns. notSynced when the new one stands and only its place in the
// folder may not be on the disk. The caller holds the lock that all writers of the folder take.
// What a killed writer has left behind, the file of the pending name, goes with the next call.
int replaceFile(int folder, const std::string& name, std::string_view bytes, mode_t mode);

// The name under which replaceFile() prepares the file `name`.
std::string pendingName(const std::string& name);

} // namespace base

#endif
