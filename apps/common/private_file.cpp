#include "private_file.h"

#include <cerrno>
#include <cstring>
#include <filesystem>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "base/durable_file.h"
#include "failure.h"
#include "terminal_text.h"
#include "unfinished_file.h"

namespace ctl {

namespace {

constexpr mode_t privateMode = 0600;
const char toTheOutput[] = "Name a new file; without --output, or with \"--output -\", the "
                           "profiles go to the standard output.";

// The place that a path names: a name in an open folder, so that nobody turns it elsewhere
// meanwhile.
struct Place
{
    std::string shown;
    std::string folderPath;
    std::string name;
    base::UniqueFd folder;
    bool isTaken = false;
};

[[noreturn]] void failToWrite(const Place& place, const std::string& why,
                              const std::string& advice = {})
{
    throw Failure(Exit::Output, "cannot write " + place.shown + ": " + why + '.', advice);
}

void check(const Place& place, int error)
{
    if (error != 0)
        failToWrite(place, std::strerror(error));
}

const char* kindOf(mode_t mode)
{
    if (S_ISLNK(mode))
        return "it is a link, and leads to a file that others may read";
    if (S_ISFIFO(mode) || S_ISSOCK(mode))
        return "it is a pipe, from which others may read";
    return "it is a device, and no file";
}

// What is there already is looked at and never opened.
void refuseForeign(Place& place)
{
    struct stat status;
    if (::fstatat(place.folder.get(), place.name.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0) {
        check(place, errno == ENOENT ? 0 : errno);
        return;
    }
    if (S_ISDIR(status.st_mode))
        check(place, EISDIR);
    if (!S_ISREG(status.st_mode))
        failToWrite(place, kindOf(status.st_mode), toTheOutput);
    if (status.st_uid != ::geteuid())
        failToWrite(place, "it belongs to another user", toTheOutput);
    place.isTaken = true;
}

Place placeOf(const std::string& path)
{
    std::error_code ignored;
    const std::filesystem::path absolute = std::filesystem::absolute(path, ignored);
    Place place;
    place.shown = inQuotes(path);
    place.folderPath = absolute.parent_path().string();
    place.name = absolute.filename().string();
    if (place.name.empty())
        check(place, EISDIR);
    place.folder = base::openFolder(place.folderPath);
    if (!place.folder.isOpen())
        check(place, errno);
    refuseForeign(place);
    return place;
}

void fill(const Place& place, int file, const std::string& bytes)
{
    struct stat status;
    if (base::setMode(file, privateMode) != 0 || ::fstat(file, &status) != 0 ||
        (status.st_mode & 0777) != privateMode)
        failToWrite(place, "the file system there keeps no file from other users",
                    "Name a file on another one, for example in your home folder.");
    check(place, base::writeAll(file, bytes));
    check(place, base::syncFile(file));
}

// A file without a name goes with its process. Not every file system has them.
base::UniqueFd openNameless(const Place& place)
{
    return base::UniqueFd(
        ::openat(place.folder.get(), ".", O_TMPFILE | O_WRONLY | O_CLOEXEC, privateMode));
}

bool giveName(int file, const Place& place, const std::string& name)
{
    const std::string self = "/proc/self/fd/" + std::to_string(file);
    return ::linkat(AT_FDCWD, self.c_str(), place.folder.get(), name.c_str(), AT_SYMLINK_FOLLOW) ==
           0;
}

void openNamed(const Place& place, const std::string& name, const std::string& bytes)
{
    const base::UniqueFd file(::openat(place.folder.get(), name.c_str(),
                                       O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC,
                                       privateMode));
    if (!file.isOpen())
        check(place, errno);
    fill(place, file.get(), bytes);
}

// A name can be taken in one step only by a file that has one already.
void putInPlace(const Place& place, const base::UniqueFd& nameless, const std::string& bytes)
{
    const UnfinishedFile unfinished(place.folder.get(), place.folderPath);
    if (!nameless.isOpen() || !giveName(nameless.get(), place, unfinished.name()))
        openNamed(place, unfinished.name(), bytes);
    if (::renameat(place.folder.get(), unfinished.name().c_str(), place.folder.get(),
                   place.name.c_str()) != 0)
        check(place, errno);
}

} // namespace

void writePrivateFile(const std::string& path, const std::string& bytes)
{
    const Place place = placeOf(path);
    const base::UniqueFd nameless = openNameless(place);
    if (nameless.isOpen())
        fill(place, nameless.get(), bytes);
    if (place.isTaken || !nameless.isOpen() || !giveName(nameless.get(), place, place.name))
        putInPlace(place, nameless, bytes);
    if (const int error = base::syncFolder(place.folder.get()))
        throw Failure(Exit::NotSynced,
                      place.shown + " is written, but the disk has not confirmed it: " +
                          std::strerror(error) + '.',
                      notConfirmedAdvice(inQuotes(place.folderPath)));
}

} // namespace ctl
