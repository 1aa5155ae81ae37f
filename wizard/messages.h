// What the wizard tells the user. Each call blocks in a nested event loop until the user has seen
// it; whoever calls may be deleted meanwhile.
#ifndef WIZARD_MESSAGES_H
#define WIZARD_MESSAGES_H

#include <qstring.h>

#include "wizard/form/formcheck.h"
#include "wizard/form/formfields.h"

namespace wizard {

void showFault(FormFault fault, const FormFields& form);
void showMemoryFull();
void showWifiOnly();

// That the profile of this name was stored.
void showStored(const QString& name);

// The fields that get the focus once the user has seen a fault, in this order; up to two.
struct FaultFields
{
    Text fields[2];
    int count;
};
FaultFields fieldsToCorrect(FormFault fault);

} // namespace wizard

#endif
