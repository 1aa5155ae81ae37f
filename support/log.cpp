#include "support/log.h"

#include <stdarg.h>
#include <stdio.h>

#include <applog.h>

namespace support {

namespace {

// The highest level that is still written.
const int threshold = 7;

} // namespace

void logPrint(int level, const char* format, ...)
{
    if (level > threshold)
        return;
    va_list arguments;
    va_start(arguments, format);
    vfprintf(APPLOG_ModuleStream ? APPLOG_ModuleStream : stdout, format, arguments);
    va_end(arguments);
}

} // namespace support
