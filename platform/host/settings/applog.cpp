#include "applog.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "applogport.h"

namespace {

FILE* refused(const char* path, const char* reason)
{
    std::fprintf(stderr, "VORN_APPLOG: cannot append to %s: %s; the log is not attached\n", path,
                 reason);
    return nullptr;
}

// O_NONBLOCK keeps a pipe in the file's place from holding up the start of the program.
FILE* openLog(const char* path)
{
    constexpr int flags = O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC | O_NOCTTY | O_NONBLOCK;
    const int descriptor = ::open(path, flags, 0600);
    FILE* stream = descriptor >= 0 ? ::fdopen(descriptor, "a") : nullptr;
    if (!stream) {
        const int error = errno;
        if (descriptor >= 0)
            ::close(descriptor);
        return refused(path, std::strerror(error));
    }
    ::fcntl(descriptor, F_SETFL, O_APPEND);
    std::setvbuf(stream, nullptr, _IOLBF, 0);
    return stream;
}

FILE* attachedLog()
{
    const char* path = std::getenv("VORN_APPLOG");
    return path && *path ? openLog(path) : nullptr;
}

} // namespace

FILE* APPLOG_ModuleStream = attachedLog();

int APPLOG_ClosePort(int port)
{
    return port == 0 ? 0 : -1;
}
