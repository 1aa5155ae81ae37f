// refused: ambiguous
#include <qstring.h>

QString refusedArgumentOf64Bits(const QString& text)
{
    return text.arg(5LL);
}
