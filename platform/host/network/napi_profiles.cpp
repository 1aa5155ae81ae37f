// The profile calls of napi.h and napi_host.h: checked arguments, and no exception to the outside.
#include <algorithm>
#include <cstring>
#include <new>

#include "base/profile_name.h"
#include "network/napi_host.h"
#include "network/network_config.h"
#include "network/store/profile_reader.h"
#include "network/store/profile_writer.h"

namespace {

template <typename Call> int guarded(Call call)
{
    try {
        return call();
    } catch (const std::bad_alloc&) {
        return NAPI_ERR_RESOURCES;
    }
}

// One byte more than a name may have is looked at, so an endless text does no harm.
int checkName(const char* name)
{
    if (!name)
        return NAPI_ERR_ARGUMENT;
    bool isName = base::isProfileName({name, strnlen(name, NAPI_PROFILE_NAME_MAX + 1)});
    return isName ? NAPI_OK : NAPI_ERR_NAME;
}

template <typename Change> int changed(store::ProfileWriter::IfMissing ifMissing, Change change)
{
    return guarded([&] {
        store::ProfileWriter writer;
        int result = writer.open(ifMissing);
        return result == NAPI_OK ? change(writer) : result;
    });
}

} // namespace

using IfMissing = store::ProfileWriter::IfMissing;

int NAPI_ListAllProfile(char* buffer, unsigned int* count)
{
    if (!count)
        return NAPI_ERR_ARGUMENT;
    return guarded([&] {
        std::vector<std::string> names;
        if (int result = store::listProfiles(&names))
            return result;
        auto stored = static_cast<unsigned int>(names.size());
        if (!buffer) {
            *count = stored;
            return int(NAPI_OK);
        }
        *count = std::min(*count, stored);
        for (unsigned int i = 0; i < *count; ++i)
            memcpy(buffer + std::size_t(i) * NAPI_PROFILE_NAME_SLOT, names[i].c_str(),
                   names[i].size() + 1);
        return int(NAPI_OK);
    });
}

unsigned int NAPI_GetMaxProfiles()
{
    try {
        return network::networkConfig()->maxProfiles;
    } catch (const std::bad_alloc&) {
        return network::defaultMaxProfiles;
    }
}

int NAPI_ReadProfile(const char* name, NetworkProfile* out, int, int)
{
    if (!out)
        return NAPI_ERR_ARGUMENT;
    if (int result = checkName(name))
        return result;
    return guarded([&] { return store::readProfile(name, out); });
}

int NAPI_IsProfileValid(const char* name)
{
    if (int result = checkName(name))
        return result;
    return guarded([&] { return store::checkProfile(name); });
}

int NAPI_CreateProfile(const char* name, const NetworkProfile* record, int, int)
{
    if (!record)
        return NAPI_ERR_ARGUMENT;
    if (int result = checkName(name))
        return result;
    return changed(IfMissing::Make,
                   [&](store::ProfileWriter& writer) { return writer.create(name, *record); });
}

int NAPI_ModifyProfile(const char* name, const NetworkProfile* record, int, int)
{
    if (!record)
        return NAPI_ERR_ARGUMENT;
    if (int result = checkName(name))
        return result;
    return changed(IfMissing::Refuse,
                   [&](store::ProfileWriter& writer) { return writer.modify(name, *record); });
}

int napihost::changeProfile(const char* name, const std::function<void(NetworkProfile&)>& change)
{
    if (int result = checkName(name))
        return result;
    return changed(IfMissing::Refuse, [&](store::ProfileWriter& writer) {
        NetworkProfile record;
        if (int result = store::readProfile(name, &record))
            return result;
        change(record);
        return writer.modify(name, record);
    });
}

int napihost::deleteProfile(const char* name)
{
    if (int result = checkName(name))
        return result;
    return changed(IfMissing::Refuse,
                   [&](store::ProfileWriter& writer) { return writer.remove(name); });
}

int napihost::renameProfile(const char* name, const char* newName)
{
    if (int result = checkName(name))
        return result;
    if (int result = checkName(newName))
        return result;
    return changed(IfMissing::Refuse,
                   [&](store::ProfileWriter& writer) { return writer.rename(name, newName); });
}
