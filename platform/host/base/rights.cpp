#include "base/rights.h"

#include <cstdio>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>

namespace base {

namespace {

const char* whatMayBeDone(mode_t open)
{
    const bool read = (open & 0044) != 0, write = (open & 0022) != 0;
    if (read && write)
        return "read and write";
    return read ? "read" : "write";
}

} // namespace

std::optional<FileConcern> concernOfRights(const std::string& path, Forbidden forbidden)
{
    struct stat status;
    if (::stat(path.c_str(), &status) != 0)
        return {};
    const mode_t open = status.st_mode & (forbidden == Forbidden::Writing ? 0022 : 0066);
    if (open == 0)
        return {};
    char mode[16];
    std::snprintf(mode, sizeof mode, "%04o", static_cast<unsigned>(status.st_mode & 07777));
    return FileConcern{
        std::string("others may ") + whatMayBeDone(open) + " it (mode " + mode + ")",
        std::string(forbidden == Forbidden::Writing ? "chmod go-w " : "chmod go-rw ") +
            shellWord(path)};
}

bool isClosedToOwner(const struct stat& status)
{
    constexpr mode_t entering = S_IRUSR | S_IXUSR;
    return S_ISDIR(status.st_mode) && status.st_uid == ::geteuid() &&
           (status.st_mode & entering) != entering;
}

std::string closedFolderOnTheWay(const std::string& path)
{
    struct stat status;
    for (std::size_t end = path.find('/', 1);; end = path.find('/', end + 1)) {
        const std::string folder = path.substr(0, end);
        if (::stat(folder.c_str(), &status) == 0 && isClosedToOwner(status))
            return folder;
        if (end == std::string::npos)
            return {};
    }
}

std::string shellWord(const std::string& word)
{
    constexpr std::string_view plain =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789/._-+,:@%";
    if (!word.empty() && word.find_first_not_of(plain) == std::string::npos)
        return word;
    std::string quoted = "'";
    for (const char character : word)
        quoted += character == '\'' ? "'\\''" : std::string(1, character);
    return quoted + '\'';
}

} // namespace base
