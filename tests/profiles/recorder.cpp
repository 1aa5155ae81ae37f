#include "profiles/recorder.h"

#include <cstdio>

#include <applog.h>

namespace recorder {

Calls& calls()
{
    static Calls all;
    return all;
}

namespace {

// The stream has no buffer, so each part that it prints arrives by itself; a message is one print
// of a format without arguments, which is one part.
ssize_t take(void*, const char* bytes, std::size_t size)
{
    note("log: " + std::string(bytes, size));
    return static_cast<ssize_t>(size);
}

} // namespace

Log::Log()
{
    calls().clear();
    // A call that is noted while an allocation is watched for must not allocate.
    calls().reserve(64);
    APPLOG_ModuleStream = ::fopencookie(nullptr, "w", {nullptr, take, nullptr, nullptr});
    std::setvbuf(APPLOG_ModuleStream, nullptr, _IONBF, 0);
}

Log::~Log()
{
    std::fclose(APPLOG_ModuleStream);
    APPLOG_ModuleStream = nullptr;
}

} // namespace recorder
