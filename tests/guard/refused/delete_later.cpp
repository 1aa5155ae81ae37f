// refused: deleteLater
#include <qobject.h>

void refusedDeleteLater(QObject* object)
{
    object->deleteLater();
}
