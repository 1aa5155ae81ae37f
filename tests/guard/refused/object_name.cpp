// refused: setObjectName
#include <qobject.h>

void refusedObjectName(QObject* object)
{
    object->setObjectName("manager");
}
