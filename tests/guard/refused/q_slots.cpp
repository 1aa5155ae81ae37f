// refused: Q_SLOTS
#include <qobject.h>

struct RefusedQSlots : QObject
{
public Q_SLOTS:
    void act() {}
};
