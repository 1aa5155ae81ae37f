// refused: QObject::connect
#include <qobject.h>
#include <qtimer.h>

void refusedConnectMemberPointer(QTimer* timer)
{
    QObject::connect(timer, &QTimer::timeout, timer, &QTimer::stop);
}
