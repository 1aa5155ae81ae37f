// A program as a stranger to this tree would write it.
#include <cstdio>

#include <yapplication.h>
#include <ydatasessionmanager.h>
#include <ystatedialog.h>

int main(int argc, char** argv)
{
    YApplication app(argc, argv);
    YDataSessionManager manager;
    YStateDialog popup;
    popup.setStateString("Signing in");
    std::printf("before init: %d\n", manager.openLink("Internet"));
    return manager.openLink("Internet") == -101 ? 0 : 1;
}
