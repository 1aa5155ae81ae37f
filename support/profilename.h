// Names of profiles.
#ifndef SUPPORT_PROFILENAME_H
#define SUPPORT_PROFILENAME_H

#include <qstring.h>

namespace support {

// Whether the network API takes the text for a profile's name: 1 to 63 bytes of UTF-8 without a '/'
// and without control characters (below U+0020, and U+007F to U+009F), that begin with no dot.
bool isProfileName(const QString& text);

} // namespace support

#endif
