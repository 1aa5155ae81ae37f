#include "network/store/store_folder.h"

#include <cerrno>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>

#include "base/durable_file.h"
#include "network/file_results.h"
#include "network/napi_host.h"

namespace store {

int openStore(base::UniqueFd* folder)
{
    if (int result = network::checkRoot())
        return result;
    *folder = base::openFolder(napihost::profilesFolder());
    return folder->isOpen() || errno == ENOENT ? NAPI_OK : network::rootResult(errno);
}

namespace {

void appendEntries(const char* bytes, std::size_t length, std::vector<Entry>* entries)
{
    for (std::size_t at = 0; at < length;) {
        unsigned short recordLength;
        const char* record = bytes + at;
        memcpy(&recordLength, record + offsetof(dirent64, d_reclen), sizeof recordLength);
        auto type = static_cast<unsigned char>(record[offsetof(dirent64, d_type)]);
        const char* name = record + offsetof(dirent64, d_name);
        if (strcmp(name, ".") != 0 && strcmp(name, "..") != 0)
            entries->push_back({name, type});
        at += recordLength;
    }
}

} // namespace

int readEntries(int folder, std::vector<Entry>* entries)
{
    const std::size_t largest = std::size_t(16) << 20;
    for (std::size_t size = std::size_t(128) << 10;; size *= 4) {
        std::unique_ptr<char[]> buffer(new char[size]);
        bool isFilled = false;
        ssize_t length;
        entries->clear();
        if (lseek(folder, 0, SEEK_SET) != 0)
            return errno;
        while ((length = getdents64(folder, buffer.get(), size)) > 0) {
            appendEntries(buffer.get(), static_cast<std::size_t>(length), entries);
            isFilled = isFilled || static_cast<std::size_t>(length) + sizeof(dirent64) > size;
        }
        if (length < 0)
            return errno;
        if (!isFilled || size >= largest)
            return 0;
    }
}

bool isFolder(int folder, const Entry& entry)
{
    if (entry.type != DT_UNKNOWN)
        return entry.type == DT_DIR;
    struct stat status;
    return fstatat(folder, entry.name.c_str(), &status, AT_SYMLINK_NOFOLLOW) == 0 &&
           S_ISDIR(status.st_mode);
}

RecordStatus recordStatus(int folder, const char* path)
{
    struct stat status;
    if (fstatat(folder, path, &status, AT_SYMLINK_NOFOLLOW) != 0)
        return {errno == ENOENT ? RecordState::Missing : RecordState::OutOfReach, 0, errno};
    if (!S_ISREG(status.st_mode))
        return {RecordState::NotRegular, 0, 0};
    bool isWhole = status.st_size == sizeof(NetworkProfile);
    return {isWhole ? RecordState::Usable : RecordState::WrongSize, status.st_size, 0};
}

} // namespace store
