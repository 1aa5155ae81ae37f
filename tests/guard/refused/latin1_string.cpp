// refused: QLatin1String
#include <qstring.h>

QString refusedLatin1String()
{
    return QLatin1String("Profile");
}
