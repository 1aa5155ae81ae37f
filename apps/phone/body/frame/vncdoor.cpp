#include "vncdoor.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <utility>

#include <QCoreApplication>

#include <dirent.h>
#include <fcntl.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace phone {

namespace {

constexpr int waiting = 4; // connections that have not been answered yet

[[noreturn]] void fail(const std::string& path)
{
    std::fprintf(stderr, "the phone cannot be shown in a browser: %s: %s\n", path.c_str(),
                 std::strerror(errno));
    std::exit(1);
}

bool listensOnTcp(int descriptor)
{
    int listens = 0;
    int family = 0;
    socklen_t size = sizeof listens;
    if (getsockopt(descriptor, SOL_SOCKET, SO_ACCEPTCONN, &listens, &size) != 0 || !listens)
        return false;
    size = sizeof family;
    return getsockopt(descriptor, SOL_SOCKET, SO_DOMAIN, &family, &size) == 0 &&
           (family == AF_INET || family == AF_INET6);
}

// The descriptor of a listening TCP socket of this process, or -1.
int listeningSocket()
{
    DIR* folder = opendir("/proc/self/fd");
    if (!folder)
        fail("/proc/self/fd");
    int found = -1;
    while (const dirent* entry = readdir(folder)) {
        const int descriptor = std::atoi(entry->d_name);
        if (entry->d_name[0] != '.' && listensOnTcp(descriptor))
            found = descriptor;
    }
    closedir(folder);
    return found;
}

QtMessageHandler usualHandler = nullptr;

// The server tells of a port that nobody can reach when it does.
void leaveOutPort(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    if (text.startsWith(QLatin1String("QVncServer created on port")))
        qInstallMessageHandler(usualHandler);
    else
        usualHandler(type, context, text);
}

int listenAt(const std::string& path)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.size() >= sizeof address.sun_path) {
        errno = ENAMETOOLONG;
        fail(path);
    }
    path.copy(address.sun_path, sizeof address.sun_path - 1);
    const int listening = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    if (listening < 0 ||
        bind(listening, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0 ||
        listen(listening, waiting) != 0)
        fail(path);
    return listening;
}

} // namespace

VncDoor::VncDoor(QObject* parent, std::string path) : QObject(parent), m_path(std::move(path))
{
    QCoreApplication::instance()->installEventFilter(this);
}

bool VncDoor::eventFilter(QObject*, QEvent*)
{
    const int open = listeningSocket();
    if (open < 0)
        return false;
    const int closed = listenAt(m_path);
    if (dup3(closed, open, O_CLOEXEC) < 0)
        fail(m_path);
    close(closed);
    usualHandler = qInstallMessageHandler(leaveOutPort);
    QCoreApplication::instance()->removeEventFilter(this);
    return false;
}

} // namespace phone
