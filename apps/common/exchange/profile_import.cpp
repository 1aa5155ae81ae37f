#include "exchange/profile_import.h"

#include <algorithm>
#include <cstring>

#include "failure.h"
#include "profile/store.h"
#include "terminal_text.h"

namespace ctl {

std::vector<bool> checkAgainstStore(const std::string& file, bool replaces,
                                    const std::vector<ImportedProfile>& profiles)
{
    std::vector<bool> stored;
    for (const ImportedProfile& profile : profiles) {
        stored.push_back(profileExists(profile.name));
        if (stored.back() && !replaces)
            throw Failure(Exit::Exists,
                          "cannot import " + inQuotes(profile.name) +
                              ": a profile of this name is stored already.",
                          "Nothing was imported. --replace replaces stored profiles.");
    }
    const auto fresh = static_cast<std::size_t>(std::count(stored.begin(), stored.end(), false));
    const std::size_t room = NAPI_GetMaxProfiles();
    const std::size_t all = fresh > 0 ? listProfiles().size() + fresh : 0;
    if (all > room)
        throw Failure(Exit::NoRoom,
                      "cannot import " + inQuotes(file) + ": there would be " +
                          std::to_string(all) + " profiles, and at most " + std::to_string(room) +
                          " are kept.",
                      "Nothing was imported.");
    return stored;
}

namespace {

// A file without passwords, as export writes it unless told otherwise, leaves the stored ones.
void replaceStored(ImportedProfile& profile)
{
    try {
        changeProfile(profile.name, [&](NetworkProfile& stored) {
            for (const Field* field : profile.leftOut)
                std::memcpy(bytesOf(*field, profile.record), bytesOf(*field, stored), field->width);
            stored = profile.record;
        });
    } catch (const Failure& failure) {
        // There is nothing in a damaged record to be kept.
        if (failure.status() != Exit::Damaged)
            throw;
        modifyProfile(profile.name, profile.record);
    }
}

} // namespace

namespace {

// Half an import is told with how much of it there is.
Failure failureAfter(const Failure& failure, std::size_t before, std::size_t all)
{
    const std::size_t count = before + (failure.status() == Exit::NotSynced);
    const std::string imported = count == 0 ? "Nothing was imported. "
                                            : std::to_string(count) + " of " + std::to_string(all) +
                                                  " profiles were imported. ";
    return Failure(failure.status(), failure.what(), imported + failure.advice());
}

} // namespace

std::size_t storeProfiles(std::vector<ImportedProfile>& profiles, const std::vector<bool>& stored,
                          const std::function<bool(std::size_t)>& goesOn)
{
    for (std::size_t i = 0; i < profiles.size(); ++i) {
        if (goesOn && !goesOn(i))
            return i;
        try {
            if (stored[i])
                replaceStored(profiles[i]);
            else
                createProfile("create the profile", profiles[i].name, profiles[i].record);
        } catch (const Failure& failure) {
            throw failureAfter(failure, i, profiles.size());
        }
    }
    return profiles.size();
}

} // namespace ctl
