#include "toolkit/input/ykeypad.h"

#include <QByteArray>

namespace {

bool fromEnvironment()
{
    const QByteArray text = qgetenv("VORN_KEYPAD");
    return !text.isEmpty() && text != "0";
}

bool& present()
{
    static bool value = fromEnvironment();
    return value;
}

} // namespace

bool YKeypad::isPresent()
{
    return present();
}

void YKeypad::setPresent(bool isThere)
{
    present() = isThere;
}
