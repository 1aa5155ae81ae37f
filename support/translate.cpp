#include "support/translate.h"

#include <qapplication.h>
#include <qobject.h>

#include "support/text.h"

namespace support {

QString translate(const char* text, const char* comment)
{
    return qApp ? QObject::tr(text, comment) : fromUtf8(text);
}

} // namespace support
