// Storing what the form says.
#ifndef WIZARD_PROFILESTORE_H
#define WIZARD_PROFILESTORE_H

#include <napi.h>

#include "wizard/form/formcheck.h"

namespace wizard {

enum StoreResult {
    Stored = 0,
    // Memory has run out, or the folder of an edited profile could not be renamed. Other results
    // are those of the network API.
    NotStored = 1
};

// Creates or changes the profile of a checked form. `before` is the record that was read, or null:
// bytes that the form does not show are taken from it, and an edited profile whose record comes out
// the same is not written again. `withPage2` has the fields of page 2 stored too.
// `*storedName` is the name of the profile from now on, also when the network API has refused; it
// stays when nothing has reached the network API. Failures are logged.
int storeProfile(const FormFields& form, const FormPurpose& purpose, const NetworkProfile* before,
                 bool withPage2, QString* storedName);

// What comes of storing where memory has run out: NotStored. It is logged.
int notStoredWithoutMemory();

} // namespace wizard

#endif
