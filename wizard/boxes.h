// What the wizard tells the user. Each call blocks in a nested event loop until the user has seen
// it; whoever calls may be deleted meanwhile.
#ifndef WIZARD_BOXES_H
#define WIZARD_BOXES_H

#include <qstring.h>

#include "wizard/form/formcheck.h"
#include "wizard/form/formfields.h"

namespace wizard {

void showFault(FormFault fault, const FormFields& form);
void showMemoryFull();
void showWifiOnly();

// That the profile of this name was stored.
void showStored(const QString& name);

} // namespace wizard

#endif
