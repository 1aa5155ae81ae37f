#include "network/store/file_moves.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "base/durable_file.h"
#include "network/store/store_folder.h"

namespace store {

namespace {

int moveWith(unsigned int flags, Place from, Place to)
{
    int done =
        base::retried([&] { return renameat2(from.folder, from.name, to.folder, to.name, flags); });
    return done == 0 ? 0 : errno;
}

// What renameat2 says where the file system knows no flags.
bool isUnsupported(int error)
{
    return error == EINVAL || error == ENOSYS;
}

int removeAllBut(int folder, const char* kept)
{
    std::vector<Entry> entries;
    if (int error = readEntries(folder, &entries))
        return error;
    for (const Entry& entry : entries) {
        if (entry.name == kept)
            continue;
        if (int error = removeTree({folder, entry.name.c_str()}))
            return error;
    }
    return 0;
}

base::UniqueFd openFolderAt(Place place)
{
    return base::UniqueFd(base::retried([&] {
        return openat(place.folder, place.name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    }));
}

} // namespace

int moveToFree(Place from, Place to)
{
    int error = moveWith(RENAME_NOREPLACE, from, to);
    if (!isUnsupported(error))
        return error;
    struct stat status;
    if (fstatat(to.folder, to.name, &status, AT_SYMLINK_NOFOLLOW) == 0)
        return EEXIST;
    // Should another program put a profile there in this instant, the move is refused all the same:
    // a folder does not replace one with something in it.
    return moveWith(0, from, to);
}

int swapIn(Place from, Place to)
{
    int error = moveWith(RENAME_EXCHANGE, from, to);
    if (error == ENOENT || isUnsupported(error))
        return moveWith(0, from, to);
    return error;
}

int removeTree(Place place)
{
    if (unlinkat(place.folder, place.name, 0) == 0 || errno == ENOENT)
        return 0;
    if (errno != EISDIR)
        return errno;
    // A folder of which nothing is made yet but its name may be closed even to its owner.
    if (unlinkat(place.folder, place.name, AT_REMOVEDIR) == 0)
        return 0;
    {
        base::UniqueFd folder = openFolderAt(place);
        if (!folder.isOpen())
            return errno;
        if (int error = removeAllBut(folder.get(), ""))
            return error;
    }
    return unlinkat(place.folder, place.name, AT_REMOVEDIR) == 0 ? 0 : errno;
}

int removeFolder(Place place, const char* last)
{
    base::UniqueFd folder = openFolderAt(place);
    if (!folder.isOpen())
        return errno == ENOTDIR || errno == ELOOP ? removeTree(place) : errno;
    if (int error = removeAllBut(folder.get(), last))
        return error;
    if (int error = removeTree({folder.get(), last}))
        return error;
    unlinkat(place.folder, place.name, AT_REMOVEDIR);
    return 0;
}

} // namespace store
