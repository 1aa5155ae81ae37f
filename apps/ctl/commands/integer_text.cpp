#include "commands/integer_text.h"

#include <cerrno>
#include <climits>
#include <cstdlib>

namespace ctl {

bool looksLikeInteger(const std::string& text)
{
    const std::size_t digits = text.compare(0, 1, "-") == 0 ? 1 : 0;
    return text.size() > digits &&
           text.find_first_not_of("0123456789", digits) == std::string::npos;
}

bool integerOf(const std::string& text, int* value)
{
    if (!looksLikeInteger(text))
        return false;
    errno = 0;
    const long long number = std::strtoll(text.c_str(), nullptr, 10);
    *value = static_cast<int>(number);
    return errno == 0 && number >= INT_MIN && number <= INT_MAX;
}

} // namespace ctl
