// A port to the platform application log, one for each source file that includes this header. It is
// closed when the program, or the library with that source file, is unloaded.
#ifndef APPLOGPORT_H
#define APPLOGPORT_H

#include "platform_export.h"

extern "C" {

// Closes a port of the application log; 0 stands for no port. Result: 0, or -1 when no such port is
// open. On the host no port is ever open: the log is the one file of applog.h.
VORN_PLATFORM_API int APPLOG_ClosePort(int port);

} // extern "C"

class ApplogPort
{
public:
    ApplogPort() : handle(0) {}
    ~ApplogPort()
    {
        APPLOG_ClosePort(handle);
        handle = 0;
    }

    int handle; // 0 while no port is open

private:
    ApplogPort(const ApplogPort&);
    ApplogPort& operator=(const ApplogPort&);
};

static ApplogPort applogPort;

#endif
