// refused: QObject::connect
#include <qobject.h>
#include <qtimer.h>

void refusedConnectLambda(QTimer* timer)
{
    QObject::connect(timer, &QTimer::timeout, [] {});
}
