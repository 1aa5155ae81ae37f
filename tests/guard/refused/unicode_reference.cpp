// refused: lvalue required
#include <qstring.h>

void refusedUnicodeReference(QChar& unit)
{
    unit.unicode() = 0x20ac;
}
