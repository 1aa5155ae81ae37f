// refused: moveToThread
#include <qobject.h>

bool refusedThreads(QObject* object)
{
    object->moveToThread(nullptr);
    return true;
}
