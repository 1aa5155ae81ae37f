// What may be the name of a stored profile.
#ifndef BASE_PROFILE_NAME_H
#define BASE_PROFILE_NAME_H

#include <string_view>

namespace base {

// What keeps a text from being one; of several things the first in this order.
enum class NameProblem {
    None,
    Empty,
    TooLong, // more than 63 bytes (NAPI_PROFILE_NAME_MAX)
    NotUtf8,
    ControlCharacter, // U+0000 to U+001F, U+007F to U+009F
    Slash,
    LeadingDot
};

NameProblem problemOfName(std::string_view name);

// A name is one component of a path, stays inside the folder of the profiles, and fits its slot in
// a list of names.
inline bool isProfileName(std::string_view name)
{
    return problemOfName(name) == NameProblem::None;
}

} // namespace base

#endif
