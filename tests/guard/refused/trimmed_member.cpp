// refused: trimmed
#include <qstring.h>

QString refusedTrimmedMember(const QString& text)
{
    return text.trimmed();
}
