#include "body/body.h"

#include <algorithm>
#include <cstring>

#include <QApplication>
#include <QVBoxLayout>
#include <QWidget>

#include <toolkit/ybody.h>

namespace phone {

namespace {

class WindowBody : public Body
{
public:
    explicit WindowBody(QWidget* window) : m_window(window) {}
    void show() override { m_window->show(); }

private:
    std::unique_ptr<QWidget> m_window;
};

// Without its case the phone is its display alone.
QWidget* bareWindow(QWidget* display)
{
    auto* window = new QWidget;
    auto* layout = new QVBoxLayout(window);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(display);
    window->setWindowTitle(QApplication::applicationDisplayName());
    return window;
}

} // namespace

void addBodyOptions(CLI::App& app, BodyOptions& options)
{
    auto* screen =
        app.add_flag("--screen", options.wholeScreen, "Fill the whole screen, as on a real phone");
    auto* web = app.add_option("--web", options.webPort,
                               "Show the phone in a browser, at this port of the loopback address");
    web->type_name("PORT")->check(CLI::Range(1, 65535))->excludes(screen);
    app.add_option("--web-address", options.webAddress,
                   "Another address of this machine for the browser; others may see what is sent")
        ->type_name("ADDRESS")
        ->check(CLI::ValidIPV4)
        ->needs(web);
    // takeProgram() has taken it where a program follows.
    app.add_option("--run", options.program,
                   "Run a program that uses the library in the phone; comes last, with the "
                   "program's own arguments")
        ->type_name("PROGRAM [ARGUMENTS]");
}

int takeProgram(int argc, char** argv, BodyOptions& options)
{
    char** end = argv + argc;
    char** run = std::find_if(
        argv, end, [](const char* argument) { return std::strcmp(argument, "--run") == 0; });
    if (end - run < 2)
        return argc;
    options.program.assign(run + 1, end);
    return static_cast<int>(run - argv);
}

std::unique_ptr<Body> makeBody(QWidget* display)
{
    QWidget* window = YBody::around(display);
    return std::make_unique<WindowBody>(window ? window : bareWindow(display));
}

} // namespace phone
