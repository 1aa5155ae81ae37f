// Where the phone's file system begins.
#ifndef SUPPORT_ROOT_H
#define SUPPORT_ROOT_H

#include <qstring.h>

namespace support {

// The folder that stands in front of the phone's absolute paths, without a trailing '/': empty on
// the phone, below which nothing lies, and where the platform cannot tell.
QString rootFolder();

} // namespace support

#endif
