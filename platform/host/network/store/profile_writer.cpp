#include "network/store/profile_writer.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <string_view>
#include <sys/stat.h>

#include "base/durable_file.h"
#include "base/profile_name.h"
#include "network/file_results.h"
#include "network/napi_host.h"
#include "network/network_config.h"
#include "network/store/file_moves.h"
#include "network/store/store_folder.h"

namespace store {

namespace {

std::string_view bytesOf(const NetworkProfile& record)
{
    return {reinterpret_cast<const char*>(&record), sizeof record};
}

// 0 when there is something of this name, else an errno.
int lookFor(int folder, const std::string& name)
{
    struct stat status;
    return fstatat(folder, name.c_str(), &status, AT_SYMLINK_NOFOLLOW) == 0 ? 0 : errno;
}

base::UniqueFd openFolderIn(int folder, const char* name)
{
    return base::UniqueFd(base::retried(
        [&] { return openat(folder, name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC); }));
}

bool isBack(int error)
{
    return error == 0 || error == base::notSynced;
}

} // namespace

int ProfileWriter::open(IfMissing ifMissing)
{
    if (int result = network::checkRoot())
        return result;
    std::string path = napihost::profilesFolder();
    int error = m_folder.open(path);
    if (error == ENOENT && ifMissing == IfMissing::Refuse)
        return NAPI_ERR_NO_PROFILE;
    // EACCES: a killed program may have left a folder that nobody can enter.
    if (error == ENOENT || (error == EACCES && ifMissing == IfMissing::Make)) {
        error = base::makeRoot();
        if (error == 0)
            error = base::makeFolders(path);
        if (error == 0)
            error = m_folder.open(path);
    }
    return error ? network::rootResult(error) : network::fileResult(sweep());
}

// A leftover may be a profile on its way out, and its record must not go before the disk knows that
// it has lost its name. Leftovers that may not be removed are put aside, so that they do not stop
// the writers for good.
int ProfileWriter::sweep()
{
    Place pending{m_folder.fd(), pendingName};
    struct stat status;
    if (fstatat(pending.folder, pending.name, &status, AT_SYMLINK_NOFOLLOW) != 0)
        return errno == ENOENT ? 0 : errno;
    if (int error = base::syncFolder(m_folder.fd()))
        return error;
    int error = removeTree(pending);
    if (network::fileResult(error) != NAPI_ERR_ACCESS)
        return error;
    std::string aside = asidePrefix + std::to_string(status.st_ino);
    return moveToFree(pending, {m_folder.fd(), aside.c_str()});
}

// Removes what this writer does not need any more; where that fails, the next writer tries again.
void ProfileWriter::discardPending()
{
    removeTree({m_folder.fd(), pendingName});
}

// A folder's link count tells how many folders are in it, on file systems that keep it (a count
// below 2 says that this one does not); so the profiles are only counted when there may be too
// many.
int ProfileWriter::checkLimit() const
{
    const unsigned int limit = network::networkConfig()->maxProfiles;
    struct stat status;
    if (fstat(m_folder.fd(), &status) != 0)
        return errno;
    if (status.st_nlink >= 2 && status.st_nlink - 2 < limit)
        return 0;
    std::vector<Entry> entries;
    if (int error = readEntries(m_folder.fd(), &entries))
        return error;
    auto profiles = std::count_if(entries.begin(), entries.end(), [this](const Entry& entry) {
        return base::isProfileName(entry.name) && isFolder(m_folder.fd(), entry);
    });
    return profiles < limit ? 0 : ENOSPC;
}

// Makes the whole profile under the pending name, on the disk but for that name.
int ProfileWriter::buildFolder(const NetworkProfile& record)
{
    if (mkdirat(m_folder.fd(), pendingName, 0700) != 0)
        return errno;
    base::UniqueFd profile = openFolderIn(m_folder.fd(), pendingName);
    if (!profile.isOpen() && errno == EACCES) {
        // The process's umask keeps even the owner out.
        if (fchmodat(m_folder.fd(), pendingName, 0700, 0) == 0)
            profile = openFolderIn(m_folder.fd(), pendingName);
    }
    if (!profile.isOpen())
        return errno;
    if (int error = base::setMode(profile.get(), 0700))
        return error;
    if (int error = base::createFile(profile.get(), recordName, bytesOf(record), 0600))
        return error;
    return base::syncFolder(profile.get());
}

// One step to another name, which stands when it is made: taking it back could not be confirmed
// either, by a disk that has just failed.
int ProfileWriter::move(const char* from, const char* to)
{
    if (int error = moveToFree({m_folder.fd(), from}, {m_folder.fd(), to}))
        return error;
    return confirm();
}

int ProfileWriter::confirm()
{
    return base::syncFolder(m_folder.fd()) == 0 ? 0 : base::notSynced;
}

int ProfileWriter::create(const std::string& name, const NetworkProfile& record)
{
    int error = lookFor(m_folder.fd(), name);
    if (error != ENOENT)
        return error == 0 ? NAPI_ERR_EXISTS : network::fileResult(error);
    if ((error = checkLimit()) == 0)
        error = buildFolder(record);
    if (error == 0)
        error = move(pendingName, name.c_str());
    if (error != 0 && error != base::notSynced)
        discardPending();
    // ENOENT: the store itself was taken away from under this writer.
    return error == ENOENT ? int(NAPI_ERR_IO) : network::fileResult(error);
}

// The open folder of the profile stays the same when another program renames it meanwhile.
int ProfileWriter::replaceRecord(int profile, const NetworkProfile& record)
{
    Place pending{m_folder.fd(), pendingName}, place{profile, recordName};
    int error = base::createFile(m_folder.fd(), pendingName, bytesOf(record), 0600);
    if (error != 0)
        return error;
    if ((error = swapIn(pending, place)) != 0)
        return error;
    // The profile's own name may be newer than the disk knows, where another program has renamed
    // it; so the folder of the profiles is synced too.
    return base::syncFolder(profile) == 0 ? confirm() : base::notSynced;
}

// For a profile that is damaged so far that not even its folder is one.
int ProfileWriter::replaceFolder(const std::string& name, const NetworkProfile& record)
{
    Place pending{m_folder.fd(), pendingName}, place{m_folder.fd(), name.c_str()};
    int error = buildFolder(record);
    if (error != 0)
        return error;
    if ((error = swapIn(pending, place)) != 0)
        return error;
    return confirm();
}

int ProfileWriter::modify(const std::string& name, const NetworkProfile& record)
{
    base::UniqueFd profile = openFolderIn(m_folder.fd(), name.c_str());
    int error = errno;
    if (profile.isOpen())
        error = replaceRecord(profile.get(), record);
    else if (error == ENOTDIR)
        error = replaceFolder(name, record);
    discardPending();
    return network::fileResult(error);
}

// Where the disk has not confirmed the new name, the record stays behind it for the next writer, so
// that a loss of power brings back the whole profile or nothing.
int ProfileWriter::remove(const std::string& name)
{
    if (int error = move(name.c_str(), pendingName))
        return network::fileResult(error);
    int error = removeFolder({m_folder.fd(), pendingName}, recordName);
    // A record that cannot be removed stays where people look for it: it holds passwords. Where it
    // cannot be put back either the profile is gone, and the rest is left to the next writer.
    if (error == 0 || !isBack(move(pendingName, name.c_str())))
        return NAPI_OK;
    return network::fileResult(error);
}

int ProfileWriter::rename(const std::string& name, const std::string& newName)
{
    if (name == newName)
        return network::fileResult(lookFor(m_folder.fd(), name));
    if (int error = lookFor(m_folder.fd(), name))
        return network::fileResult(error);
    return network::fileResult(move(name.c_str(), newName.c_str()));
}

} // namespace store
