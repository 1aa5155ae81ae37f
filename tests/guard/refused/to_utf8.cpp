// refused: toUtf8
#include <qstring.h>

bool refusedToUtf8(const QString& text)
{
    return text.toUtf8().isEmpty();
}
