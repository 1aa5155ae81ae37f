// refused: use of deleted function .*arg
#include <qstring.h>

QString refusedArgumentWithFill(int number)
{
    return QString("%1").arg(number, 4, 10, QChar('0'));
}
