// refused: ambiguous
#include <qstring.h>

QString refusedNumberOf64Bits()
{
    return QString::number(5LL);
}
