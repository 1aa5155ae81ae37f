// Looking for damage in the store, without changing anything.
#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <new>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>

#include "base/locked_folder.h"
#include "base/profile_name.h"
#include "base/rights.h"
#include "network/file_results.h"
#include "network/napi_host.h"
#include "network/store/store_folder.h"

namespace store {

namespace {

const char restoreOrDelete[] = "restore it from a copy, or delete the profile";
const char givePermission[] = "give its owner the permission to read it";

using napihost::Finding;

Finding outOfReach(const std::string& path, int error)
{
    return {path, std::string("cannot be read: ") + strerror(error),
            network::fileResult(error) == NAPI_ERR_ACCESS ? givePermission : restoreOrDelete};
}

void inspectRights(const std::string& path, base::Forbidden forbidden,
                   std::vector<Finding>* findings)
{
    if (const auto concern = base::concernOfRights(path, forbidden))
        findings->push_back({path, concern->problem, concern->remedy});
}

// Adds what is wrong with the record `path` ("NAME/profile"), if anything.
void inspectRecord(int folder, const std::string& path, const std::string& full,
                   std::vector<Finding>* findings)
{
    RecordStatus status = recordStatus(folder, path.c_str());
    switch (status.state) {
    case RecordState::Usable:
        inspectRights(full, base::Forbidden::ReadingAndWriting, findings);
        if (faccessat(folder, path.c_str(), R_OK, AT_EACCESS) != 0)
            findings->push_back(outOfReach(full, errno));
        break;
    case RecordState::Missing:
        findings->push_back({full, "record is missing", restoreOrDelete});
        break;
    case RecordState::NotRegular:
        findings->push_back({full, "record is no regular file", restoreOrDelete});
        break;
    case RecordState::WrongSize:
        findings->push_back({full,
                             "record has " + std::to_string(status.size) + " bytes instead of " +
                                 std::to_string(sizeof(NetworkProfile)),
                             restoreOrDelete});
        break;
    case RecordState::OutOfReach:
        findings->push_back(outOfReach(full, status.error));
        break;
    }
}

// The folders from the root to the profiles. Whoever may write in one of them may put others in
// their places; a list of their names is nobody's secret but the root's and the profiles' own.
void inspectWay(std::vector<Finding>* findings)
{
    const std::string root = napihost::rootFolder(), store = napihost::profilesFolder();
    inspectRights(root, base::Forbidden::ReadingAndWriting, findings);
    for (std::size_t end = store.find('/', root.size() + 1); end != std::string::npos;
         end = store.find('/', end + 1))
        inspectRights(store.substr(0, end), base::Forbidden::Writing, findings);
    inspectRights(store, base::Forbidden::ReadingAndWriting, findings);
}

bool isPutAside(const std::string& name)
{
    const std::string_view prefix = asidePrefix;
    return name.compare(0, prefix.size(), prefix) == 0;
}

// While a writer holds the store, what it builds is its own business; without one, it was left.
void inspectPending(const std::string& path, std::vector<Finding>* findings)
{
    base::LockedFolder store;
    struct stat status;
    if (store.open(napihost::profilesFolder(), std::chrono::milliseconds(0)) == 0 &&
        fstatat(store.fd(), pendingName, &status, AT_SYMLINK_NOFOLLOW) == 0)
        findings->push_back(
            {path,
             "left by a program that was ended while it changed a profile; it may "
             "hold passwords",
             "the next change of a profile removes it, or rm -r " + base::shellWord(path)});
}

void inspectProfile(int folder, const std::string& name, const std::string& path,
                    std::vector<Finding>* findings)
{
    const std::string record = path + "/" + recordName;
    inspectRights(path, base::Forbidden::ReadingAndWriting, findings);
    inspectRecord(folder, name + "/" + recordName, record, findings);
}

void inspectEntry(int folder, const Entry& entry, std::vector<Finding>* findings)
{
    std::string path = napihost::profilesFolder() + "/" + entry.name;
    if (entry.name == pendingName)
        inspectPending(path, findings);
    else if (isPutAside(entry.name))
        findings->push_back({path,
                             "put aside because it could not be removed; it may hold passwords",
                             "as its owner or as root: rm -r " + base::shellWord(path)});
    else if (!base::isProfileName(entry.name))
        findings->push_back({path, "no profile can have this name",
                             "remove it, or give it a name "
                             "that a profile can have"});
    else if (!isFolder(folder, entry))
        findings->push_back({path, "is no folder with a record in it", restoreOrDelete});
    else
        inspectProfile(folder, entry.name, path, findings);
}

int inspect(std::vector<Finding>* findings)
{
    base::UniqueFd folder;
    std::vector<Entry> entries;
    if (int result = openStore(&folder))
        return result;
    inspectWay(findings);
    if (!folder.isOpen())
        return NAPI_OK;
    if (int error = readEntries(folder.get(), &entries))
        return network::fileResult(error);
    std::sort(entries.begin(), entries.end(),
              [](const Entry& a, const Entry& b) { return a.name < b.name; });
    for (const Entry& entry : entries)
        inspectEntry(folder.get(), entry, findings);
    return NAPI_OK;
}

} // namespace

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
