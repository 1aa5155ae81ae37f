// refused: QStringList
#include <qstringlist.h>

QStringList refusedListInBraces()
{
    return QStringList{"a", "b", "c", "d"};
}
