// refused: Connection
#include <qmetaobject.h>
#include <qobject.h>
#include <qtimer.h>

bool refusedConnectionKept(QTimer* timer)
{
    const QMetaObject::Connection connection =
        QObject::connect(timer, SIGNAL(timeout()), timer, SLOT(stop()));
    return connection ? true : false;
}
