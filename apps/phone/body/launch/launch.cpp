#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include <QString>
#include <QtGlobal>

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include "base/look_variables.h"
#include "body/body.h"
#include "body/frame/caselayout.h"
#include "child.h"
#include "displayprobe.h"
#include "screenscale.h"
#include "webdoor.h"

namespace phone {

namespace {

enum Status { CannotBeShown = 3, CannotBeRun = 126, NotFound = 127 };

void set(const char* name, const std::string& value)
{
    setenv(name, value.c_str(), 1);
}

void setUnlessSet(const char* name, const std::string& value)
{
    setenv(name, value.c_str(), 0);
}

int fail(const std::string& what)
{
    std::fprintf(stderr, "vornphone: %s\n", what.c_str());
    return CannotBeShown;
}

// Qt tells of a display that it cannot use, or that has gone, in its own words, and ends the
// program with a core file.
void tellDisplayTrouble(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    if (type == QtFatalMsg && text.contains(QLatin1String("platform plugin"))) {
        tellNoDisplay();
        _exit(CannotBeShown);
    }
    if (text.contains(QLatin1String("connection broke"))) {
        std::fprintf(stderr, "vornphone: the display has gone away\n");
        _exit(CannotBeShown);
    }
    const bool ofDisplay = std::strncmp(context.category, "qt.qpa.", 7) == 0;
    if (!ofDisplay)
        std::fprintf(stderr, "%s\n", qPrintable(qFormatLogMessage(type, context, text)));
}

// A scale that the person has chosen holds.
void prepareScreen(const DisplayFacts& facts)
{
    ScreenScale scale = screenScale(facts);
    if (std::getenv("QT_SCALE_FACTOR"))
        scale = {facts.ratio, static_cast<int>(facts.width / facts.ratio),
                 static_cast<int>(facts.height / facts.ratio)};
    else
        set("QT_SCALE_FACTOR", std::to_string(scale.pixels / facts.ratio));
    set("VORN_SCREEN", std::to_string(scale.width) + "x" + std::to_string(scale.height));
    setUnlessSet("VORN_THEME", "system"); // which goes with the desktop's, while it runs too
}

// Does not come back where the program could be started.
int become(const std::vector<std::string>& program)
{
    std::vector<char*> arguments;
    for (const std::string& argument : program)
        arguments.push_back(const_cast<char*>(argument.c_str()));
    arguments.push_back(nullptr);
    execvp(arguments[0], arguments.data());
    const int error = errno;
    std::fprintf(stderr, "vornphone: %s cannot be run: %s\n", arguments[0], std::strerror(error));
    return error == ENOENT ? NotFound : CannotBeRun;
}

std::optional<int> onDisplay(const BodyOptions& options)
{
    set("VORN_BODY", options.wholeScreen ? "screen" : "desk");
    if (options.wholeScreen || !options.program.empty()) {
        const std::optional<DisplayFacts> facts = probeDisplay();
        if (!facts) {
            tellNoDisplay();
            return CannotBeShown;
        }
        if (options.wholeScreen)
            prepareScreen(*facts);
    }
    if (!options.program.empty())
        return become(options.program);
    qInstallMessageHandler(tellDisplayTrouble);
    return std::nullopt;
}

// The screen of the VNC server is as large as the phone, at twice the pixels unless the person has
// chosen otherwise: a browser may show it larger or on a finer display.
void prepareVnc(const std::string& door, bool hasStatusBar)
{
    constexpr int statusBar = 22;
    int width = 240;
    int height = 320;
    base::readScreenSize(base::lookValue("VORN_SCREEN"), width, height);
    setUnlessSet("QT_SCALE_FACTOR", "2");
    const double scale = std::max(1.0, std::atof(std::getenv("QT_SCALE_FACTOR")));
    const QSize size = CaseLayout::usualSize({width, height + (hasStatusBar ? statusBar : 0)},
                                             CaseLayout::Keys::Below) *
                       scale;
    set("QT_QPA_PLATFORM",
        "vnc:port=0:size=" + std::to_string(size.width()) + "x" + std::to_string(size.height()));
    set("VORN_BODY", "web");
    set("VORN_DOOR", door);
}

// Until one of the two ends, or this program is told to.
int serve(WebDoor& door, Child& program)
{
    for (;;) {
        const int number = nextSignal(1000);
        if (number != 0 && number != SIGCHLD)
            return 128 + number;
        int status = 0;
        if (waitpid(program.id(), &status, WNOHANG) == program.id()) {
            program.hasEnded();
            return exitStatus(status);
        }
        if (waitpid(door.server(), nullptr, WNOHANG) == door.server()) {
            door.serverHasEnded();
            return fail("websockify has ended: " + door.log());
        }
    }
}

int inBrowser(const BodyOptions& options, char** argv)
{
    WebDoor door(options.webAddress, options.webPort);
    if (const std::string obstacle = door.obstacle(); !obstacle.empty())
        return fail(obstacle);
    holdSignals();
    if (const std::string error = door.open(); !error.empty())
        return fail(error);
    const bool isOwn = options.program.empty();
    prepareVnc(door.socket(), isOwn);
    std::vector<std::string> program = options.program;
    for (char** argument = argv; isOwn && *argument; ++argument)
        program.push_back(argument == argv ? "/proc/self/exe" : *argument);
    Child phone;
    if (const int error = phone.start(program); error != 0) {
        std::fprintf(stderr, "vornphone: %s cannot be run: %s\n", program[0].c_str(),
                     std::strerror(error));
        return error == ENOENT ? NotFound : CannotBeRun;
    }
    std::printf("The phone is at %s\nThe address is the key to it: only who has it gets in.\n",
                door.url().c_str());
    std::fflush(stdout);
    return serve(door, phone);
}

} // namespace

std::optional<int> launch(const BodyOptions& options, char** argv)
{
    // The phone that this program has started for the browser.
    if (std::getenv("VORN_DOOR"))
        return std::nullopt;
    return options.webPort != 0 ? inBrowser(options, argv) : onDisplay(options);
}

} // namespace phone
