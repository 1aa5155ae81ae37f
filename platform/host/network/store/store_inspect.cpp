// Looking for damage in the store, without changing anything.
#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <new>
#include <unistd.h>

#include "network/file_results.h"
#include "network/napi_host.h"
#include "network/store/profile_name.h"
#include "network/store/store_folder.h"

namespace store {

static const char kRestoreOrDelete[] = "restore it from a copy, or delete the profile";
static const char kGivePermission[] = "give its owner the permission to read it";

using napihost::Finding;

static Finding outOfReach(const std::string& path, int error)
{
    return {path, std::string("cannot be read: ") + strerror(error),
            network::fileResult(error) == NAPI_ERR_ACCESS ? kGivePermission : kRestoreOrDelete};
}

// Adds what is wrong with the record `path` ("NAME/profile"), if anything.
static void inspectRecord(int folder, const std::string& path, const std::string& full,
                          std::vector<Finding>* findings)
{
    RecordStatus status = recordStatus(folder, path.c_str());
    switch (status.state) {
    case RecordState::Usable:
        if (faccessat(folder, path.c_str(), R_OK, AT_EACCESS) != 0)
            findings->push_back(outOfReach(full, errno));
        break;
    case RecordState::Missing:
        findings->push_back({full, "record is missing", kRestoreOrDelete});
        break;
    case RecordState::NotRegular:
        findings->push_back({full, "record is no regular file", kRestoreOrDelete});
        break;
    case RecordState::WrongSize:
        findings->push_back({full,
                             "record has " + std::to_string(status.size) + " bytes instead of " +
                                 std::to_string(sizeof(NetworkProfile)),
                             kRestoreOrDelete});
        break;
    case RecordState::OutOfReach:
        findings->push_back(outOfReach(full, status.error));
        break;
    }
}

static void inspectEntry(int folder, const Entry& entry, std::vector<Finding>* findings)
{
    std::string path = napihost::profilesFolder() + "/" + entry.name;
    if (entry.name == kPendingName)
        return; // a writer's work; the next one removes it if it is not finished
    if (!isProfileName(entry.name))
        findings->push_back({path, "no profile can have this name",
                             "remove it, or give it a name "
                             "that a profile can have"});
    else if (!isFolder(folder, entry))
        findings->push_back({path, "is no folder with a record in it", kRestoreOrDelete});
    else
        inspectRecord(folder, entry.name + "/" + kRecordName, path + "/" + kRecordName, findings);
}

static int inspect(std::vector<Finding>* findings)
{
    base::UniqueFd folder;
    std::vector<Entry> entries;
    if (int result = openStore(&folder); result != NAPI_OK || !folder.isOpen())
        return result;
    if (int error = readEntries(folder.get(), &entries))
        return network::fileResult(error);
    std::sort(entries.begin(), entries.end(),
              [](const Entry& a, const Entry& b) { return a.name < b.name; });
    for (const Entry& entry : entries)
        inspectEntry(folder.get(), entry, findings);
    return NAPI_OK;
}

} // namespace store

int napihost::inspectStore(std::vector<Finding>* findings)
{
    if (!findings)
        return NAPI_ERR_ARGUMENT;
    try {
        findings->clear();
        return store::inspect(findings);
    } catch (const std::bad_alloc&) {
        return NAPI_ERR_RESOURCES;
    }
}
