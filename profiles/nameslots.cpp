#include "profiles/nameslots.h"

#include <stdint.h>
#include <string.h>

#include "support/text.h"

namespace profiles {

size_t slotsSize(unsigned int count)
{
    return count <= SIZE_MAX / NAPI_PROFILE_NAME_SLOT ? size_t(count) * NAPI_PROFILE_NAME_SLOT : 0;
}

QString slotName(const char* buffer, unsigned int index)
{
    const char* slot = buffer + size_t(index) * NAPI_PROFILE_NAME_SLOT;
    return support::fromUtf8(slot, int(strnlen(slot, NAPI_PROFILE_NAME_SLOT)));
}

} // namespace profiles
