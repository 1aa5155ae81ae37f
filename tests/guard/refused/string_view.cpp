// refused: QStringView
#include <qstring.h>

bool refusedStringView(const QString& text)
{
    return QStringView(text).isEmpty();
}
