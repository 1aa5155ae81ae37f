// refused: KeypadModifier
#include <qevent.h>

bool refusedKeyCombination(QKeyEvent* event)
{
    return event->modifiers() == Qt::KeypadModifier;
}
