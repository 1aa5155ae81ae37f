#include "files.h"

#include <cerrno>
#include <cstring>
#include <filesystem>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "base/durable_file.h"
#include "output.h"
#include "terminal_text.h"

namespace ctl {

namespace {

std::string errorText(int error)
{
    return std::strerror(error);
}

// Only a regular file, or nothing, can be replaced; what else a path names is written to in place.
bool isReplaceable(const std::string& path)
{
    struct stat status;
    return ::lstat(path.c_str(), &status) != 0 || S_ISREG(status.st_mode);
}

void writeInPlace(const std::string& path, const std::string& bytes)
{
    const std::string shown = inQuotes(path);
    const base::UniqueFd file(::open(path.c_str(), O_WRONLY | O_CLOEXEC));
    if (!file.isOpen())
        throw Failure(Exit::Output, "cannot write " + shown + ": " + errorText(errno) + ".");
    writeAll(file.get(), bytes, shown);
}

} // namespace

std::string readFile(const std::string& path, std::size_t limit, Exit status)
{
    const bool standardInput = path == "-";
    const std::string shown = standardInput ? "the standard input" : inQuotes(path);
    base::UniqueFd file(standardInput ? ::dup(STDIN_FILENO)
                                      : ::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    if (!file.isOpen())
        throw Failure(status, "cannot read " + shown + ": " + errorText(errno) + ".");
    std::string bytes;
    char buffer[65536];
    for (;;) {
        const ssize_t count =
            base::retried([&] { return ::read(file.get(), buffer, sizeof buffer); });
        if (count < 0)
            throw Failure(status, "cannot read " + shown + ": " + errorText(errno) + ".");
        if (count == 0)
            return bytes;
        bytes.append(buffer, static_cast<std::size_t>(count));
        if (bytes.size() > limit)
            throw Failure(status, "cannot use " + shown + ": it has more than " +
                                      std::to_string(limit) + " bytes.");
    }
}

void writePrivateFile(const std::string& path, const std::string& bytes)
{
    if (!isReplaceable(path))
        return writeInPlace(path, bytes);
    std::error_code ignored;
    const std::string absolute = std::filesystem::absolute(path, ignored).string();
    if (const int error = base::replaceFile(absolute, bytes, 0600))
        throw Failure(Exit::Output,
                      "cannot write " + inQuotes(path) + ": " + errorText(error) + ".");
}

} // namespace ctl
