// What libytoolkit asks of this library.
#include <cstdlib>
#include <cstring>

#include <QGuiApplication>

#include "deskbody.h"
#include "screenbody.h"
#include "vncdoor.h"

namespace {

// VORN_DOOR is where vornphone waits for the phone that it shows in a browser.
void closeDoor()
{
    const char* body = std::getenv("VORN_BODY");
    const char* path = std::getenv("VORN_DOOR");
    if (body && path && std::strcmp(body, "web") == 0 &&
        QGuiApplication::platformName() == QLatin1String("vnc"))
        new phone::VncDoor(QCoreApplication::instance(), path);
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(closeDoor)

// `kind` is what VORN_BODY says. The window owns `display`.
extern "C" Q_DECL_EXPORT QWidget* vornMakeBody(const char* kind, QWidget* display)
{
    using phone::DeskBody;
    if (std::strcmp(kind, "screen") == 0)
        return new phone::ScreenBody(display);
    return new DeskBody(display, std::strcmp(kind, "web") == 0 ? DeskBody::Room::WholeScreen
                                                               : DeskBody::Room::Window);
}
