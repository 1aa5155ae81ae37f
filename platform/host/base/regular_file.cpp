#include "base/regular_file.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "base/durable_file.h"
#include "base/unique_fd.h"

namespace base {

namespace {

int readAll(int descriptor, std::size_t largest, std::string* bytes)
{
    char block[16384];
    for (;;) {
        const ssize_t got = retried([&] { return ::read(descriptor, block, sizeof block); });
        if (got <= 0)
            return got == 0 ? 0 : errno;
        bytes->append(block, static_cast<std::size_t>(got));
        if (bytes->size() > largest)
            return IsTooLarge;
    }
}

} // namespace

int readRegularFile(const std::string& path, std::size_t largest, std::string* bytes)
{
    const UniqueFd file(retried(
        [&] { return ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY); }));
    struct stat status;
    if (!file.isOpen() || ::fstat(file.get(), &status) != 0)
        return errno;
    if (S_ISDIR(status.st_mode))
        return IsFolder;
    return S_ISREG(status.st_mode) ? readAll(file.get(), largest, bytes) : IsNoRegularFile;
}

} // namespace base
