// Functions about the stored network profiles.
//
// All of them are called on the GUI thread of a program with a QApplication, and block until they
// are done. A profile's name is a text of 1 to 63 bytes in UTF-8.
#ifndef PROFILEFUNCTIONS_H
#define PROFILEFUNCTIONS_H

#include <qstring.h>

#include "vornqtnapi_export.h"

// Has the user pick one of the stored profiles, from a modal list in the order of the network API.
// The row of the profile `name` is checked at first; the first row when `name` is empty or no
// stored profile is called exactly so. The list is no longer than NAPI_GetMaxProfiles says. Returns
// when the user has decided; the application's events are served meanwhile.
//
// Result: 0 when the user has picked a profile, whose name is now in `name`. In every other case
// `name` keeps its value: -100 when no profile is stored (no list is shown then), memory has run
// out, the user has cancelled, or no row was current when the list was left; the negative result of
// NAPI_ListAllProfile when the profiles cannot be listed. That none is stored, that memory has run
// out and that they cannot be listed is also written to the application log.
//
//     QString name = lastUsedProfile;
//     if (getProfileNamebySelect(name) == 0)
//         manager->openLink(name);
VORNQTNAPI_EXPORT int getProfileNamebySelect(QString& name);

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

// The profile wizard: two pages that fill the screen, on which the user creates, copies or edits a
// profile. It returns when the user has saved or cancelled; the application's events are served
// meanwhile, and its windows may be closed or deleted. A wizard may be started from inside another
// one; the inner one has to end first.
//
// Result: 0 when a profile was stored, 1 when the user has cancelled, 2 when the wizard was closed
// in any other way: the network API has refused the profile, a profile's folder could not take its
// new name (a name with a '/', for instance, can name no folder), the screen was closed, hidden or
// deleted, the application has quit, a page was hidden or deleted, or memory has run out. Of a
// refusal the user is told only when it is the network API's -152 (memory full); otherwise the
// wizard just closes, and the reason is in the application log. No exception leaves these
// functions.

// Creates a profile. What `name` holds is not looked at; with result 0 it is the name under which
// the new profile is stored, otherwise it keeps its value.
//
//     QString name;
//     if (createProfilebyUser(name) == 0)
//         manager->openLink(name);
VORNQTNAPI_EXPORT int createProfilebyUser(QString& name);

// Creates a profile that starts as a copy of the profile `name`, under a name of its own. `name`
// keeps its value. The result is 0 as well when `name` is no stored, usable profile; nothing is
// shown then.
VORNQTNAPI_EXPORT int copyProfilebyUser(QString& name);

// Changes the profile `name` or its name. `name` keeps its value, even when the user has given the
// profile another name. The wizard's row for the name takes 20 QChars: a profile with a longer name
// is shown, and with any change stored, under the first 20. The result is 0 as well when `name` is
// no stored, usable profile; nothing is shown then.
VORNQTNAPI_EXPORT int editProfilebyUser(QString& name);

// For an application that has found no connection: tells the user, who may create a profile with
// createProfilebyUser() or pick one with getProfileNamebySelect(). Result: that of the function
// that the user has chosen, with what it says about `name`; 1 when the user has cancelled before
// choosing; -1 when the platform's dialog has no list or no choice, or memory has run out. With
// result 0 `name` is the profile to be used.
//
//     QString name;
//     if (getProfileIfNoFound(name) == 0)
//         manager->openLink(name);
VORNQTNAPI_EXPORT int getProfileIfNoFound(QString& name);

#endif
