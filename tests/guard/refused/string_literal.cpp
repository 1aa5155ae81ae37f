// refused: QStringLiteral
#include <qstring.h>

QString refusedStringLiteral()
{
    return QStringLiteral("Profile");
}
