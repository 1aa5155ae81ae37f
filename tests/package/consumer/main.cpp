// A program as a stranger to this tree would write it.
#include <cstdio>

#include <applog.h>
#include <napi.h>
#include <yapplication.h>
#include <ydatasessionmanager.h>
#include <ystatedialog.h>

int main(int argc, char** argv)
{
    YApplication app(argc, argv);
    YDataSessionManager manager;
    YStateDialog popup;
    popup.setStateString("Signing in");
    // A symbol of each library that an application may use.
    unsigned int profiles = 0;
    if (NAPI_ListAllProfile(nullptr, &profiles) != 0 || APPLOG_ModuleStream)
        return 1;
    std::printf("before init: %d\n", manager.openLink("Internet"));
    return manager.openLink("Internet") == -101 ? 0 : 1;
}
