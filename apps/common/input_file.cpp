#include "input_file.h"

#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <unistd.h>

#include "base/durable_file.h"
#include "terminal_text.h"

namespace ctl {

namespace {

std::string errorText(int error)
{
    return std::strerror(error);
}

std::string shownName(const std::string& path, const std::string& called)
{
    if (path == "-")
        return "the standard input";
    return called.empty() ? inQuotes(path) : called;
}

} // namespace

std::string readFile(const std::string& path, std::size_t limit, Exit status,
                     const std::string& called)
{
    const std::string shown = shownName(path, called);
    base::UniqueFd file(base::retried([&] {
        return path == "-" ? ::dup(STDIN_FILENO) : ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    }));
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

} // namespace ctl
