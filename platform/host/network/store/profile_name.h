// What may be the name of a stored profile.
#ifndef NETWORK_PROFILE_NAME_H
#define NETWORK_PROFILE_NAME_H

#include <string_view>

namespace store {

// 1 to NAPI_PROFILE_NAME_MAX bytes of valid UTF-8 without '/', without control characters (U+0000
// to U+001F, U+007F to U+009F), and not beginning with '.'. Such a name is one component of a path,
// stays inside the folder of the profiles, and fits its slot in a list of names.
bool isProfileName(std::string_view name);

} // namespace store

#endif
