// "profile import": profiles of a file into the store.
#include <algorithm>
#include <cstring>

#include "commands/exchange.h"
#include "failure.h"
#include "files.h"
#include "line/request.h"
#include "output.h"
#include "profile/record.h"
#include "profile/store.h"
#include "terminal_text.h"

namespace ctl {

namespace {

constexpr std::size_t largestFile = 64U << 20;

std::vector<ImportedProfile> fromRecord(const Request& request, const std::string& bytes)
{
    if (request.name.empty())
        throw Failure(Exit::Usage, "a raw record has no name.", "Give one with --name.");
    ImportedProfile profile = {};
    if (bytes.size() != sizeof profile.record)
        throw Failure(Exit::Input,
                      "cannot import " + inQuotes(request.file) + ": it has " +
                          std::to_string(bytes.size()) + " bytes, and a raw record has " +
                          std::to_string(sizeof profile.record) + '.',
                      "Nothing was imported.");
    std::memcpy(&profile.record, bytes.data(), sizeof profile.record);
    return {profile};
}

void giveName(const Request& request, std::vector<ImportedProfile>& profiles)
{
    if (request.name.empty())
        return;
    if (profiles.size() != 1)
        throw Failure(Exit::Usage,
                      "--name names one profile, and the file holds " +
                          std::to_string(profiles.size()) + '.',
                      "Nothing was imported.");
    profiles[0].name = request.name;
    if (!nameProblem(request.name).empty())
        failNapi(NAPI_ERR_NAME, "import a profile as", &request.name);
}

// Whether each of the profiles is stored already; refuses what the store would refuse.
std::vector<bool> checkAgainstStore(const Request& request,
                                    const std::vector<ImportedProfile>& profiles)
{
    std::vector<bool> stored;
    for (const ImportedProfile& profile : profiles) {
        stored.push_back(profileExists(profile.name));
        if (stored.back() && !request.replace)
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
                      "cannot import " + inQuotes(request.file) + ": there would be " +
                          std::to_string(all) + " profiles, and at most " + std::to_string(room) +
                          " are kept.",
                      "Nothing was imported.");
    return stored;
}

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

void storeAll(std::vector<ImportedProfile>& profiles, const std::vector<bool>& stored)
{
    for (std::size_t i = 0; i < profiles.size(); ++i) {
        try {
            if (stored[i])
                replaceStored(profiles[i]);
            else
                createProfile("create the profile", profiles[i].name, profiles[i].record);
        } catch (const Failure& failure) {
            const std::size_t count = i + (failure.status() == Exit::NotSynced);
            const std::string imported = count == 0 ? "Nothing was imported. "
                                                    : std::to_string(count) + " of " +
                                                          std::to_string(profiles.size()) +
                                                          " profiles were imported. ";
            throw Failure(failure.status(), failure.what(), imported + failure.advice());
        }
    }
}

} // namespace

int profileImport(const Request& request)
{
    std::string bytes = readFile(request.file, largestFile, Exit::Input);
    std::vector<ImportedProfile> profiles =
        request.raw ? fromRecord(request, bytes) : readExchange(request, std::move(bytes));
    giveName(request, profiles);
    storeAll(profiles, checkAgainstStore(request, profiles));
    if (!request.json)
        return 0;
    Json list = Json::array();
    for (const ImportedProfile& profile : profiles)
        list.push_back(describe(profile.name, profile.record, request.showSecrets));
    printJson(list);
    return 0;
}

} // namespace ctl
