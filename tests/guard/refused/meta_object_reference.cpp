// refused: inherits
#include <qmetaobject.h>
#include <qobject.h>

bool refusedMetaObjectText(const QObject& object)
{
    return object.metaObject()->inherits(&QObject::staticMetaObject);
}
