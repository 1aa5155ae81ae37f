// The folder of the profiles as it is on the disk: NAME/profile for each profile, and one name for
// what a writer is building or removing.
#ifndef NETWORK_STORE_FOLDER_H
#define NETWORK_STORE_FOLDER_H

#include <string>
#include <sys/types.h>
#include <vector>

#include "base/unique_fd.h"

namespace store {

// The record, in the profile's own folder.
inline constexpr char recordName[] = "profile";

// What a writer builds before it appears, and what it removes after it is gone. The writers' lock
// admits one at a time, so whatever has this name when the lock is taken was left by a killed
// writer.
inline constexpr char pendingName[] = ".pending";

// What a leftover that may not be removed is put aside as, a number behind it.
inline constexpr char asidePrefix[] = ".unremovable-";

// Opens the folder of the profiles for looking. Result: NAPI_OK, with `folder` not open when
// nothing has been stored below this root yet; or NAPI_ERR_ROOT, NAPI_ERR_ACCESS,
// NAPI_ERR_RESOURCES, NAPI_ERR_IO.
int openStore(base::UniqueFd* folder);

// One name in a folder, and what it is: DT_DIR, DT_REG, ... or DT_UNKNOWN where the file system
// does not say (see getdents64).
struct Entry
{
    std::string name;
    unsigned char type;
};

// Reads a folder's entries without "." and "..", in one system call where the file system allows:
// the kernel then shows a renaming that happens meanwhile either before or after, never half.
// Result: 0 or an errno.
int readEntries(int folder, std::vector<Entry>* entries);

// Tells whether an entry is a folder, not a symbolic link to one.
bool isFolder(int folder, const Entry& entry);

enum class RecordState {
    Usable,
    Missing,
    NotRegular, // a folder, a link, a pipe, a device
    WrongSize,
    OutOfReach // RecordStatus::error says why
};

struct RecordStatus
{
    RecordState state;
    off_t size;
    int error;
};

// Looks at the record `path`, relative to an open folder, without opening it: a pipe or a device in
// its place is not touched, and a symbolic link is not followed.
RecordStatus recordStatus(int folder, const char* path);

} // namespace store

#endif
