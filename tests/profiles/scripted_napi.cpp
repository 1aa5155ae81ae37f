#include "profiles/scripted_napi.h"

#include <algorithm>
#include <cstring>

#include <napi.h>

#include "profiles/recorder.h"

namespace scripted {

namespace {

Napi current;
bool zerosFirst = false;

} // namespace

std::string slot(const std::string& name)
{
    return name + '\0';
}

void play(const Napi& napi)
{
    current = napi;
}

bool beganWithZeros()
{
    return zerosFirst;
}

namespace {

unsigned int countOr(int scriptedCount, std::size_t otherwise)
{
    return static_cast<unsigned int>(scriptedCount == asStored ? static_cast<int>(otherwise)
                                                               : scriptedCount);
}

void fill(char* buffer, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i) {
        char* place = buffer + 64 * i;
        std::memset(place, '9', 64);
        std::memcpy(place, current.filled[i].data(),
                    std::min<std::size_t>(64, current.filled[i].size()));
    }
}

} // namespace

} // namespace scripted

int NAPI_ListAllProfile(char* buffer, unsigned int* count)
{
    using namespace scripted;
    if (!buffer) {
        recorder::note("list count " + std::to_string(*count));
        *count = countOr(current.firstCount, current.filled.size());
        return current.firstResult;
    }
    recorder::note("list names " + std::to_string(*count));
    const std::size_t taken = std::min<std::size_t>(*count, current.filled.size());
    zerosFirst = *count > 0 && std::memcmp(buffer, "\0\0\0\0", 4) == 0;
    fill(buffer, taken);
    *count = countOr(current.secondCount, taken);
    return current.secondResult;
}

unsigned int NAPI_GetMaxProfiles()
{
    std::vector<unsigned int>& limits = scripted::current.limits;
    const unsigned int limit = limits.front();
    if (limits.size() > 1)
        limits.erase(limits.begin());
    recorder::note("limit " + std::to_string(limit));
    scripted::current.afterLimit();
    return limit;
}
