// refused: Q_EMIT
#include <qobject.h>

struct RefusedQEmit : QObject
{
    void act() { Q_EMIT destroyed(); }
};
