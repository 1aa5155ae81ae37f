// refused: QueuedConnection
#include <qobject.h>
#include <qtimer.h>

void refusedConnectWithType(QTimer* timer)
{
    QObject::connect(timer, SIGNAL(timeout()), timer, SLOT(stop()), Qt::QueuedConnection);
}
