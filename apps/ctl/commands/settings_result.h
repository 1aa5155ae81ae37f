// What a result of the settings library means for vornctl.
#ifndef CTL_SETTINGS_RESULT_H
#define CTL_SETTINGS_RESULT_H

#include <string>

#include "settings/settings_host.h"

namespace ctl {

// Throws the Failure of a result that is not Ok. `action` is what was tried, "read the setting";
// `list` is what shows the names or the numbers that there are.
void checkSettings(const settingshost::Result& result, const std::string& action, const char* list);

} // namespace ctl

#endif
