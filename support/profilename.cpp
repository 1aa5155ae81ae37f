#include "support/profilename.h"

#include <algorithm>
#include <string>

#include <napi.h>

#include "support/text.h"
#include "support/units.h"

namespace support {

namespace {

bool isRefused(char16_t unit)
{
    return unit == u'/' || unit < 0x20 || (unit >= 0x7F && unit < 0xA0);
}

} // namespace

bool isProfileName(const QString& text)
{
    const std::u16string units = unitsOf(text);
    return !units.empty() && units.front() != u'.' && utf8(text).size() <= NAPI_PROFILE_NAME_MAX &&
           std::none_of(units.begin(), units.end(), isRefused);
}

} // namespace support
