// Files and folders by name.
#ifndef SUPPORT_FILES_H
#define SUPPORT_FILES_H

#include <qstring.h>

namespace support {

// Renames a file or a folder as rename(2) does, with both names in UTF-8 whatever the locale: a
// file replaces a file or a symbolic link, a folder an empty folder; nothing is moved to another
// file system. Returns whether it was done; nothing has changed when not. An empty name and one
// with a U+0000 in it are no names.
bool renamePath(const QString& from, const QString& to);

} // namespace support

#endif
