// refused: size
#include <qstringlist.h>

long refusedListSize(const QStringList& list)
{
    return static_cast<long>(list.size());
}
