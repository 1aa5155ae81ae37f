#include "cards/card.h"

namespace phone {

QString Card::spoken() const
{
    QStringList parts = {title};
    if (isMarked)
        parts << markedAs;
    if (!badge.isEmpty())
        parts << badge;
    parts << lines;
    parts.removeAll(QString());
    return parts.join(QStringLiteral(", "));
}

} // namespace phone
