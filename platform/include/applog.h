// The platform application log, as far as a library that only prints to it needs it.
#ifndef APPLOG_H
#define APPLOG_H

#include <stdio.h>

#include "platform_export.h"

extern "C" {

// The stream of the module that this process logs for; null while the log is not attached. The log
// owns the stream. On the host it is attached at load time when VORN_APPLOG names a file, which is
// then made (mode 0600) or appended to, line by line. When that file cannot be opened, the reason
// is said on standard error and the stream stays null.
VORN_PLATFORM_API extern FILE* APPLOG_ModuleStream;

} // extern "C"

#endif
