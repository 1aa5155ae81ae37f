#include "support/object.h"

#include <string>

#include "support/text.h"

namespace support {

QString objectName(const QObject* object)
{
    const std::string name = qt::nameOf(object);
    return fromUtf8(name.c_str());
}

} // namespace support
