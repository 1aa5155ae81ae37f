#include "wizard/world/recorded_napi.h"

#include <cstring>

#include "common/interposed.h"
#include "profiles/recorder.h"

namespace {

RecordedNapi* current = nullptr;

} // namespace

RecordedNapi::RecordedNapi()
{
    current = this;
}

RecordedNapi::~RecordedNapi()
{
    current = nullptr;
}

namespace {

void note(const std::string& what)
{
    recorder::note(what);
    const interposed::Call call(what);
}

std::string trailing(int reserved1, int reserved2)
{
    return reserved1 == 0 && reserved2 == 0
               ? ""
               : " with " + std::to_string(reserved1) + " and " + std::to_string(reserved2);
}

} // namespace

int NAPI_ListAllProfile(char* buffer, unsigned int* count)
{
    const interposed::Call call("list");
    if (current->listResult != 0)
        return current->listResult;
    if (!buffer) {
        *count = static_cast<unsigned int>(current->profiles.size());
        return 0;
    }
    unsigned int filled = 0;
    for (const auto& profile : current->profiles) {
        if (filled < *count)
            std::strncpy(buffer + 64 * filled++, profile.first.c_str(), 64);
    }
    *count = filled;
    return 0;
}

unsigned int NAPI_GetMaxProfiles()
{
    return 100;
}

int NAPI_ReadProfile(const char* name, NetworkProfile* out, int reserved1, int reserved2)
{
    note("read " + std::string(name) + trailing(reserved1, reserved2));
    current->lastRead = out;
    const auto found = current->profiles.find(name);
    if (found == current->profiles.end())
        return NAPI_ERR_NO_PROFILE;
    if (current->readResult == 0 || current->fillsRefused)
        *out = found->second;
    return current->readResult;
}

int NAPI_CreateProfile(const char* name, const NetworkProfile* record, int reserved1, int reserved2)
{
    note("create " + std::string(name) + trailing(reserved1, reserved2));
    current->written = *record;
    if (current->createResult == 0)
        current->profiles[name] = *record;
    return current->createResult;
}

int NAPI_ModifyProfile(const char* name, const NetworkProfile* record, int reserved1, int reserved2)
{
    note("modify " + std::string(name) + trailing(reserved1, reserved2));
    current->written = *record;
    if (current->modifyResult == 0)
        current->profiles[name] = *record;
    return current->modifyResult;
}

int NAPI_IsProfileValid(const char* name)
{
    note("valid " + std::string(name));
    return current->profiles.count(name) ? current->validResult : NAPI_ERR_NO_PROFILE;
}
