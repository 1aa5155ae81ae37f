// What is around the phone's display.
#ifndef PHONE_BODY_BODY_H
#define PHONE_BODY_BODY_H

#include <memory>

#include <CLI/App.hpp>

class QWidget;

namespace phone {

struct BodyOptions
{};

// Adds the options that choose a body; `options` lives as long as `app`.
void addBodyOptions(CLI::App& app, BodyOptions& options);

class Body
{
public:
    virtual ~Body() = default;
    virtual void show() = 0;
};

// Makes the body that the options choose. The display becomes a part of its window, which deletes
// it.
std::unique_ptr<Body> makeBody(const BodyOptions& options, QWidget* display);

} // namespace phone

#endif
