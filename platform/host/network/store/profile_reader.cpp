#include "network/store/profile_reader.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>

#include "base/durable_file.h"
#include "base/profile_name.h"
#include "network/file_results.h"
#include "network/forgotten_record.h"
#include "network/store/store_folder.h"

namespace store {

namespace {

// Other programs may rename and remove profiles while one looks; looking again finds where they
// are now. More than a few times in a row takes a program that does nothing else.
const int looks = 64;

base::UniqueFd openProfile(int folder, const std::string& name)
{
    return base::UniqueFd(base::retried([&] {
        return openat(folder, name.c_str(), O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    }));
}

enum class Look { Usable, Unusable, Gone };

Look lookAt(int folder, const std::string& name)
{
    std::string path = name + "/" + recordName;
    RecordState state = recordStatus(folder, path.c_str()).state;
    if (state == RecordState::Missing) {
        // Either the folder has no record, or it has another name by now.
        base::UniqueFd profile = openProfile(folder, name);
        if (!profile.isOpen())
            return errno == ENOENT ? Look::Gone : Look::Unusable;
        state = recordStatus(profile.get(), recordName).state;
    }
    return state == RecordState::Usable ? Look::Usable : Look::Unusable;
}

// Gives the names of the usable profiles among the entries; false when an entry is gone already, so
// that a profile may have taken a name that these entries do not have.
bool pickUsable(int folder, const std::vector<Entry>& entries, std::vector<std::string>* names)
{
    bool areAllThere = true;
    names->clear();
    for (const Entry& entry : entries) {
        if (!base::isProfileName(entry.name) || !isFolder(folder, entry))
            continue;
        Look look = lookAt(folder, entry.name);
        if (look == Look::Usable)
            names->push_back(entry.name);
        areAllThere = areAllThere && look != Look::Gone;
    }
    return areAllThere;
}

// Tells whether `name` still stands for the folder that was opened under it.
bool isStillNamed(int store, const std::string& name, int profile)
{
    struct stat named, opened;
    return fstatat(store, name.c_str(), &named, AT_SYMLINK_NOFOLLOW) == 0 &&
           fstat(profile, &opened) == 0 && named.st_dev == opened.st_dev &&
           named.st_ino == opened.st_ino;
}

// NAPI_OK with the record open; NAPI_ERR_NO_PROFILE when the folder holds none.
int openRecordIn(int profile, base::UniqueFd* record)
{
    RecordStatus status = recordStatus(profile, recordName);
    switch (status.state) {
    case RecordState::Missing:
        return NAPI_ERR_NO_PROFILE;
    case RecordState::NotRegular:
    case RecordState::WrongSize:
        return NAPI_ERR_DAMAGED;
    case RecordState::OutOfReach:
        return network::fileResult(status.error);
    case RecordState::Usable:
        break;
    }
    // O_NONBLOCK: should a pipe have taken the record's place in this instant, nobody waits for it.
    *record = base::UniqueFd(base::retried([&] {
        return openat(profile, recordName, O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    }));
    return record->isOpen() ? NAPI_OK : network::fileResult(errno);
}

int openRecord(const std::string& name, base::UniqueFd* record)
{
    base::UniqueFd folder;
    if (int result = openStore(&folder))
        return result;
    for (int look = 0; folder.isOpen() && look < looks; ++look) {
        base::UniqueFd profile(base::retried([&] {
            return openat(folder.get(), name.c_str(),
                          O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
        }));
        if (!profile.isOpen())
            return network::fileResult(errno);
        int result = openRecordIn(profile.get(), record);
        if (result != NAPI_ERR_NO_PROFILE)
            return result;
        // A folder that is just being removed has lost its name before its record.
        if (isStillNamed(folder.get(), name, profile.get()))
            return NAPI_ERR_DAMAGED;
    }
    return NAPI_ERR_NO_PROFILE;
}

} // namespace

int listProfiles(std::vector<std::string>* names)
{
    base::UniqueFd folder;
    std::vector<Entry> entries;
    names->clear();
    if (int result = openStore(&folder); result != NAPI_OK || !folder.isOpen())
        return result;
    for (int look = 0; look < looks; ++look) {
        if (int error = readEntries(folder.get(), &entries))
            return network::fileResult(error);
        if (pickUsable(folder.get(), entries, names))
            break;
    }
    std::sort(names->begin(), names->end());
    return NAPI_OK;
}

int checkProfile(const std::string& name)
{
    base::UniqueFd record;
    return openRecord(name, &record);
}

int readProfile(const std::string& name, NetworkProfile* out)
{
    base::UniqueFd record;
    if (int result = openRecord(name, &record))
        return result;
    network::ForgottenRecord whole;
    char* bytes = reinterpret_cast<char*>(static_cast<NetworkProfile*>(&whole));
    for (std::size_t have = 0; have < sizeof whole;) {
        ssize_t got =
            base::retried([&] { return read(record.get(), bytes + have, sizeof whole - have); });
        if (got < 0)
            return network::fileResult(errno);
        if (got == 0)
            return NAPI_ERR_DAMAGED;
        have += static_cast<std::size_t>(got);
    }
    *out = whole;
    return NAPI_OK;
}

} // namespace store
