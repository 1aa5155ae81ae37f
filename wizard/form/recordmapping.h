// From a record to the form and back. No function reads beyond the end of a record's field.
#ifndef WIZARD_RECORDMAPPING_H
#define WIZARD_RECORDMAPPING_H

#include <napi.h>

#include "wizard/form/formfields.h"

namespace wizard {

// Page 1 without its name and its connection preference, and the CSD number of page 2, so that it
// is known before page 2 is opened. An address of 0 leaves its field as it is.
void fillPage1(const NetworkProfile& record, FormFields& form);

// All of page 2. A speed without an item is logged and leaves speed and line type as they are, an
// address of 0 its field.
void fillPage2(const NetworkProfile& record, FormFields& form);

// The same fields from the form into the record; everything else in the record stays. What the form
// has no code for (no such item, no address) leaves its field; a speed or an address is then
// logged.
void storePage1(const FormFields& form, NetworkProfile* record);
void storePage2(const FormFields& form, NetworkProfile* record);

} // namespace wizard

#endif
