#include "profiles/nameslots.h"

#include <stdint.h>
#include <string.h>

#include "support/text.h"

namespace profiles {

bool slotsSize(unsigned int count, std::size_t* size)
{
    if (count > SIZE_MAX / NAPI_PROFILE_NAME_SLOT)
        return false;
    *size = std::size_t(count) * NAPI_PROFILE_NAME_SLOT;
    return true;
}

QString slotName(const char* buffer, unsigned int index)
{
    const char* slot = buffer + std::size_t(index) * NAPI_PROFILE_NAME_SLOT;
    return support::fromUtf8(slot, int(strnlen(slot, NAPI_PROFILE_NAME_SLOT)));
}

} // namespace profiles
