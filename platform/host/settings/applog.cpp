#include "applog.h"

#include <cstdio>
#include <cstdlib>

static FILE* openLog()
{
    const char* path = std::getenv("VORN_APPLOG");
    FILE* log = path && *path ? std::fopen(path, "ae") : nullptr;
    if (log)
        std::setvbuf(log, nullptr, _IOLBF, 0);
    return log;
}

FILE* APPLOG_ModuleStream = openLog();
