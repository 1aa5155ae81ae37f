#include "base/profile_name.h"

#include "base/utf8.h"

namespace base {

NameProblem problemOfName(std::string_view name)
{
    constexpr std::size_t longest = 63;
    if (name.empty())
        return NameProblem::Empty;
    if (name.size() > longest)
        return NameProblem::TooLong;
    if (!isUtf8(name))
        return NameProblem::NotUtf8;
    if (hasControls(name))
        return NameProblem::ControlCharacter;
    if (name.find('/') != std::string_view::npos)
        return NameProblem::Slash;
    return name.front() == '.' ? NameProblem::LeadingDot : NameProblem::None;
}

} // namespace base
