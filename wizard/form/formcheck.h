// What has to be right before a profile is stored.
#ifndef WIZARD_FORMCHECK_H
#define WIZARD_FORMCHECK_H

#include "wizard/form/formfields.h"

namespace wizard {

enum class FormFault {
    None,
    DuplicateName,      // a stored profile has this name
    NameMissing,        // nothing but blanks
    NameInvalid,        // begins with a dot
    ApnOrNumberMissing, // neither an access point nor a number to dial
    DnsInvalid          // a name server that is no address
};

// What a form is checked for.
struct FormPurpose
{
    bool isCreating = true; // a new profile, a copy included; otherwise an edited one
    QString storedName;     // the name under which an edited profile is stored
    bool hasWifi = false;   // whether the form has a connection preference
};

// The name as it is stored: the name field's text without the blanks around it.
QString profileNameOf(const FormFields& form);

// The first fault of the name alone. Asks the network API whether the name is taken.
FormFault checkName(const FormFields& form, const FormPurpose& purpose);

// The first fault of the whole form, its name first. Where only WiFi is wanted, nothing else is
// looked at.
FormFault checkForm(const FormFields& form, const FormPurpose& purpose);

// The fields that get the focus once the user has seen a fault, in this order; up to two.
struct FaultFields
{
    Text fields[2];
    int count;
};
FaultFields fieldsToCorrect(FormFault fault);

} // namespace wizard

#endif
