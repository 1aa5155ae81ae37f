// Any bytes in /etc/resolv.conf: what is taken for a name server is one word.
#include <algorithm>
#include <cctype>
#include <cstdarg>
#include <cstring>

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/syscall.h>
#include <unistd.h>

#include "fuzz/target.h"
#include "network/links/resolver_config.h"

namespace {

std::string content;

int machinesFile()
{
    const int file = ::memfd_create("resolv.conf", MFD_CLOEXEC);
    fuzz::require(::write(file, content.data(), content.size()) == ssize_t(content.size()), "room");
    ::lseek(file, 0, SEEK_SET);
    return file;
}

bool isMachines(const char* path)
{
    return std::strcmp(path, "/etc/resolv.conf") == 0;
}

int opened(const char* path, int flags, va_list rest)
{
    if (isMachines(path))
        return machinesFile();
    const unsigned mode = flags & (O_CREAT | O_TMPFILE) ? va_arg(rest, unsigned) : 0;
    return static_cast<int>(::syscall(SYS_openat, AT_FDCWD, path, flags, mode));
}

FILE* openedStream(const char* path, const char* mode)
{
    if (isMachines(path))
        return ::fdopen(machinesFile(), "r");
    const bool reads = *mode == 'r';
    const int flags = reads ? O_RDONLY : O_WRONLY | O_CREAT | (*mode == 'w' ? O_TRUNC : O_APPEND);
    const int file = static_cast<int>(::syscall(SYS_openat, AT_FDCWD, path, flags, 0666));
    return file < 0 ? nullptr : ::fdopen(file, mode);
}

} // namespace

extern "C" int open(const char* path, int flags, ...)
{
    va_list rest;
    va_start(rest, flags);
    const int file = opened(path, flags, rest);
    va_end(rest);
    return file;
}

extern "C" int open64(const char* path, int flags, ...)
{
    va_list rest;
    va_start(rest, flags);
    const int file = opened(path, flags, rest);
    va_end(rest);
    return file;
}

extern "C" FILE* fopen(const char* path, const char* mode)
{
    return openedStream(path, mode);
}

extern "C" FILE* fopen64(const char* path, const char* mode)
{
    return openedStream(path, mode);
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size)
{
    content = fuzz::textOf(data, size);
    const NetworkProfile record = {};
    const network::Device device = {};
    for (const std::string& server : network::nameServers(record, device)) {
        fuzz::require(!server.empty(), "a name server has a text");
        fuzz::require(std::none_of(server.begin(), server.end(),
                                   [](unsigned char one) { return std::isspace(one); }),
                      "a name server is one word");
    }
    return 0;
}
