// The folder in which the network API keeps one profile; the folder's name is the profile's.
#ifndef WIZARD_PROFILEFOLDER_H
#define WIZARD_PROFILEFOLDER_H

#include <qstring.h>

namespace wizard {

// Gives a stored profile another name by renaming its folder. Result: whether it was done; when
// not, the reason is logged and nothing has changed. A text that the network API takes for no
// profile's name is never a folder's name either, so that the folder cannot leave its place nor be
// lost to the network API.
bool renameProfileFolder(const QString& from, const QString& to);

} // namespace wizard

#endif
