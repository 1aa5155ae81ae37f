// refused: QObject::tr
#include <qobject.h>

QString refusedTrWithNumber()
{
    return QObject::tr("%n links", "count", 3);
}
