#include "toolkit/input/ykeypad.h"

#include <QKeyEvent>

#include "toolkit/yenvironment.h"

namespace {

enum class Keypad { None, Marked, EveryRow };

Keypad& present()
{
    static Keypad value = YEnvironment::hasKeypad() ? Keypad::EveryRow : Keypad::None;
    return value;
}

// A keyboard may need Shift for '*' and '#'.
bool isOfAnyRow(const QKeyEvent& event)
{
    const int key = event.key();
    const bool sign = key == Qt::Key_Asterisk || key == Qt::Key_NumberSign;
    const Qt::KeyboardModifiers plain = event.modifiers() & ~Qt::KeypadModifier;
    return (key >= Qt::Key_0 && key <= Qt::Key_9 && plain == Qt::NoModifier) ||
           (sign && (plain & ~Qt::ShiftModifier) == Qt::NoModifier);
}

} // namespace

bool YKeypad::isPresent()
{
    return present() != Keypad::None;
}

void YKeypad::setPresent(bool isThere)
{
    present() = isThere ? Keypad::Marked : Keypad::None;
}

bool YKeypad::isKey(const QKeyEvent& event)
{
    switch (present()) {
    case Keypad::None:
        return false;
    case Keypad::Marked:
        return event.modifiers().testFlag(Qt::KeypadModifier);
    case Keypad::EveryRow:
        return event.modifiers().testFlag(Qt::KeypadModifier) || isOfAnyRow(event);
    }
    return false;
}
