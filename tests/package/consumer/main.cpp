// A program as a stranger to this tree would write it.
#include <cstdio>

#include <applog.h>
#include <napi.h>
#include <vornqtnapi_texts.h>
#include <vornqtnapi_version.h>
#include <yapplication.h>
#include <ydatasessionmanager.h>
#include <ystatedialog.h>

#if VORNQTNAPI_VERSION < VORNQTNAPI_VERSION_CHECK(1, 0, 0)
#error "the library is older than this program"
#endif

int main(int argc, char** argv)
{
    YApplication app(argc, argv);
#ifdef QT_NO_KEYWORDS
    // The words are the program's own.
    const int signals = 1, slots = 2, emit = 3;
    std::printf("%d\n", signals + slots + emit);
#endif
    YDataSessionManager manager;
    YStateDialog popup;
    popup.setStateString("Signing in");
    // A symbol of each library that an application may use.
    unsigned int profiles = 0;
    if (NAPI_ListAllProfile(nullptr, &profiles) != 0 || APPLOG_ModuleStream)
        return 1;
    const int result = manager.openLink("Internet");
    std::printf("before init: %d %s\n", result, vornResultName(result));
    return result == VORN_ERR_NOT_INITIALISED ? 0 : 1;
}
