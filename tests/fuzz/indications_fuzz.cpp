// Any bytes on the indication socket, in pieces of any size: the manager tells its receivers what
// whole messages say, and what it does not know is passed over.
#include <algorithm>
#include <cstring>

#include <QCoreApplication>
#include <sys/socket.h>
#include <unistd.h>

#include "fuzz/target.h"
#include "napi.h"
#include "ydatasessionmanager.h"

namespace {

int writeEnd = -1;

} // namespace

// The network API under the manager is this program.
extern "C" int NAPI_Init(int)
{
    int ends[2] = {-1, -1};
    fuzz::require(::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) == 0, "sockets");
    writeEnd = ends[1];
    return ends[0];
}

extern "C" int NAPI_Fini()
{
    ::close(writeEnd);
    return 0;
}

extern "C" int NAPI_OpenLink(const char*)
{
    return 7;
}

extern "C" int NAPI_CloseLink(int)
{
    return 0;
}

namespace {

// Reads what a receiver is given, so that a sanitizer sees it.
void look(int linkId, const YLinkInfo& info)
{
    fuzz::require(linkId >= 0 && linkId <= 255, "a link id is 0..255");
    fuzz::require(std::memchr(info.infoText, 0, sizeof info.infoText), "a text ends");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size)
{
    static int argc = 1;
    static char name[] = "fuzz_indications";
    static char* argv[] = {name, nullptr};
    static QCoreApplication application(argc, argv);

    YDataSessionManager manager;
    std::size_t told = 0;
    const auto tell = [&told](int link, YLinkInfo& info) {
        look(link, info);
        ++told;
    };
    QObject::connect(&manager, &YDataSessionManager::connected, tell);
    QObject::connect(&manager, &YDataSessionManager::broken, tell);
    QObject::connect(&manager, &YDataSessionManager::openFailed,
                     [&told](int, int, int) { ++told; });
    manager.init(false);
    manager.openLinkNoDialog("Any");

    // The first byte says how long the pieces are.
    const std::size_t piece = size == 0 ? 1 : data[0] + 1U;
    for (std::size_t at = std::min<std::size_t>(size, 1); at < size; at += piece) {
        const std::size_t count = std::min(piece, size - at);
        fuzz::require(::send(writeEnd, data + at, count, MSG_NOSIGNAL) == ssize_t(count), "room");
        QCoreApplication::processEvents();
    }
    QCoreApplication::processEvents();
    fuzz::require(told <= size / sizeof(NapiIndication), "a message is told once");
    return 0;
}
