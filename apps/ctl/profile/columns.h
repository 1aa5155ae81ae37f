// A profile as named values, for lists and for scripts: the names are the keys of its JSON.
#ifndef CTL_COLUMNS_H
#define CTL_COLUMNS_H

#include <string>
#include <vector>

#include "listing.h"
#include "napi.h"

namespace ctl {

// "name", the fields that people see, and for each password whether there is one ("password-set").
std::vector<std::string> profileColumns();

// The value of one of them. A password is "(set)" unless `secrets`.
Cell profileCell(const std::string& column, const std::string& name, const NetworkProfile& record,
                 bool secrets);

// Throws Failure (Exit::Usage) where programs or scripts, to whom "(set)" would be a password, ask
// for one without --show-secrets.
void refuseHiddenPasswords(const Request& request, const std::vector<std::string>& columns);

} // namespace ctl

#endif
