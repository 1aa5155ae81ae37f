#include "network/file_results.h"

#include <cerrno>

#include "base/durable_file.h"
#include "base/root.h"
#include "napi.h"

namespace network {

namespace {

struct Meaning
{
    int error;
    int result;
};

const Meaning meanings[] = {
    {0, NAPI_OK},
    {ENOSPC, NAPI_ERR_MEMORY_FULL},
    {EDQUOT, NAPI_ERR_MEMORY_FULL},
    {EMLINK, NAPI_ERR_MEMORY_FULL}, // the file system takes no more folders into this one
    {ENOENT, NAPI_ERR_NO_PROFILE},
    {EEXIST, NAPI_ERR_EXISTS},
    {ENOTEMPTY, NAPI_ERR_EXISTS},
    {ENOTDIR, NAPI_ERR_DAMAGED},
    {ELOOP, NAPI_ERR_DAMAGED},
    {EISDIR, NAPI_ERR_DAMAGED},
    {EACCES, NAPI_ERR_ACCESS},
    {EPERM, NAPI_ERR_ACCESS},
    {EROFS, NAPI_ERR_ACCESS},
    {EMFILE, NAPI_ERR_RESOURCES},
    {ENFILE, NAPI_ERR_RESOURCES},
    {ENOMEM, NAPI_ERR_RESOURCES},
    {ENOLCK, NAPI_ERR_RESOURCES},
    {ETIMEDOUT, NAPI_ERR_BUSY}, // base::LockedFolder
    {base::notSynced, NAPI_ERR_NOT_SYNCED},
};

} // namespace

int checkRoot()
{
    std::string root = base::rootFolder();
    return !root.empty() && root.front() == '/' ? NAPI_OK : NAPI_ERR_ROOT;
}

int fileResult(int error)
{
    for (const Meaning& meaning : meanings)
        if (meaning.error == error)
            return meaning.result;
    return NAPI_ERR_IO;
}

int rootResult(int error)
{
    switch (error) {
    case ENOENT: // a dangling symbolic link on the way
    case EEXIST:
    case ENOTDIR:
    case ELOOP:
    case ENAMETOOLONG:
        return NAPI_ERR_ROOT;
    default:
        return fileResult(error);
    }
}

} // namespace network
