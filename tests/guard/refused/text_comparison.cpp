// refused: use of deleted function .*operator==
#include <qstring.h>

bool refusedTextComparison(const QString& name)
{
    return name == "";
}
