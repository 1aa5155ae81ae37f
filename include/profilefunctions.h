// Functions about the stored network profiles.
//
// All of them are called on the GUI thread of a program with a QApplication, and block until they
// are done. A profile's name is a text of 1 to 63 bytes in UTF-8.
#ifndef PROFILEFUNCTIONS_H
#define PROFILEFUNCTIONS_H

#include <qstring.h>

#include "vornqtnapi_export.h"

// Makes a name for a new profile: "Profile" and the number after the highest one that a stored
// profile's name has there. With "Profile1" and "Profile5" stored it is "Profile6": gaps are not
// filled. Names that do not begin with exactly "Profile", or whose rest is not a whole decimal
// number of 32 bits, do not count; without any it is "Profile1".
//
// On success `name` is the new name. When the stored profiles cannot be listed, or memory has run
// out, the reason is written to the application log and `name` keeps its value. Nothing is
// reserved: until a profile is stored under the name, the next call gives the same one. Needs no
// QApplication.
//
//     QString name("My connection");
//     getDefaultProfileName(name);
//     field->setText(name);
VORNQTNAPI_EXPORT void getDefaultProfileName(QString& name);

#endif
