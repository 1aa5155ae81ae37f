// The profile store as vornctl uses it: the calls of the network API, each failure with a message
// that says what failed, for which profile, why, and what to do.
#ifndef COMMON_STORE_H
#define COMMON_STORE_H

#include <functional>
#include <string>
#include <vector>

#include "napi.h"

namespace ctl {

// Throws the Failure of a negative result. `action` is what was tried, "show the profile"; `name`
// the profile it was tried on, without one when null.
[[noreturn]] void failNapi(int result, const std::string& action, const std::string* name);

// Why the text cannot be a profile name; "" when it can.
std::string nameProblem(const std::string& name);

// The names of the usable profiles, sorted byte by byte.
std::vector<std::string> listProfiles();

bool profileExists(const std::string& name);

NetworkProfile readProfile(const std::string& action, const std::string& name);
// `action` is what was tried, "create the profile".
void createProfile(const std::string& action, const std::string& name,
                   const NetworkProfile& record);
// Changes fields of a stored profile, whatever other programs change of it at the same time; what
// `change` throws leaves the profile as it is.
void changeProfile(const std::string& name, const std::function<void(NetworkProfile&)>& change);
void modifyProfile(const std::string& name, const NetworkProfile& record);
void renameProfile(const std::string& name, const std::string& newName);
void deleteProfile(const std::string& name);

} // namespace ctl

#endif
