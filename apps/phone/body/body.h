// What is around the phone's display.
#ifndef PHONE_BODY_BODY_H
#define PHONE_BODY_BODY_H

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <CLI/App.hpp>

class QWidget;

namespace phone {

struct BodyOptions
{
    bool wholeScreen = false;
    int webPort = 0; // 0: not in a browser
    std::string webAddress = "127.0.0.1";
    std::vector<std::string>
        program; // somebody's program and its arguments; none: vornphone itself
};

// Adds the options that choose a body; `options` lives as long as `app`.
void addBodyOptions(CLI::App& app, BodyOptions& options);

// Takes --run with all that follows it, which is another program's, from the arguments. Result: the
// number of those that are left.
int takeProgram(int argc, char** argv, BodyOptions& options);

// What comes before a window can be made: the scale of a real phone's screen, the servers for a
// browser, somebody's program. Result: the status with which this process ends, or nothing when
// vornphone itself is to go on here. To be called while the process has one thread, and before
// there is an application object.
std::optional<int> launch(const BodyOptions& options, char** argv);

class Body
{
public:
    virtual ~Body() = default;
    virtual void show() = 0;
};

// Makes the body that launch() has prepared. The display becomes a part of its window, which
// deletes it.
std::unique_ptr<Body> makeBody(QWidget* display);

} // namespace phone

#endif
