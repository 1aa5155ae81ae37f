#include "displayprobe.h"

#include <cstdio>
#include <cstdlib>

#include <QGuiApplication>
#include <QScreen>

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

namespace phone {

namespace {

constexpr int longestWait = 10000; // milliseconds

// What Qt says of a display that it cannot use is for people who build Qt.
void silence()
{
    const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
    if (nowhere >= 0)
        dup2(nowhere, STDERR_FILENO);
}

[[noreturn]] void ask(int answer)
{
    silence();
    char name[] = "vornphone";
    char* arguments[] = {name, nullptr};
    int count = 1;
    const QGuiApplication application(count, arguments);
    const QScreen* screen = QGuiApplication::primaryScreen();
    if (!screen)
        _exit(1);
    const double ratio = screen->devicePixelRatio();
    const QSize logical = screen->size();
    const QSizeF physical = screen->physicalSize();
    const DisplayFacts facts{qRound(logical.width() * ratio), qRound(logical.height() * ratio),
                             ratio, physical.width(), physical.height()};
    _exit(write(answer, &facts, sizeof facts) == sizeof facts ? 0 : 1);
}

std::optional<DisplayFacts> readAnswer(int descriptor)
{
    pollfd waited{descriptor, POLLIN, 0};
    DisplayFacts facts{};
    if (poll(&waited, 1, longestWait) != 1 ||
        read(descriptor, &facts, sizeof facts) != static_cast<ssize_t>(sizeof facts))
        return std::nullopt;
    return facts;
}

const char* orNothing(const char* name)
{
    const char* value = std::getenv(name);
    return value && *value ? value : "not set";
}

} // namespace

std::optional<DisplayFacts> probeDisplay()
{
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0)
        return std::nullopt;
    const pid_t child = fork();
    if (child == 0)
        ask(ends[1]);
    close(ends[1]);
    std::optional<DisplayFacts> facts;
    if (child > 0) {
        facts = readAnswer(ends[0]);
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
    }
    close(ends[0]);
    return facts;
}

void tellNoDisplay()
{
    std::fprintf(stderr,
                 "vornphone: no display can be used (DISPLAY: %s, WAYLAND_DISPLAY: %s, "
                 "QT_QPA_PLATFORM: %s)\n"
                 "  \"vornphone --web 6080\" shows the phone in a browser\n",
                 orNothing("DISPLAY"), orNothing("WAYLAND_DISPLAY"), orNothing("QT_QPA_PLATFORM"));
}

} // namespace phone
