// "profile import": profiles of a file into the store.
#include <cstring>

#include "exchange/exchange_file.h"
#include "exchange/profile_import.h"
#include "failure.h"
#include "input_file.h"
#include "line/request.h"
#include "output.h"
#include "profile/record.h"
#include "profile/store.h"
#include "terminal_text.h"

namespace ctl {

namespace {

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

} // namespace

int profileImport(const Request& request)
{
    std::string bytes = readFile(request.file, largestExchangeFile, Exit::Input);
    std::vector<ImportedProfile> profiles =
        request.raw ? fromRecord(request, bytes)
                    : readExchange(request.file, !request.name.empty(), std::move(bytes));
    giveName(request, profiles);
    storeProfiles(profiles, checkAgainstStore(request.file, request.replace, profiles));
    if (!request.json)
        return 0;
    Json list = Json::array();
    for (const ImportedProfile& profile : profiles)
        list.push_back(describe(profile.name, profile.record, request.showSecrets));
    printJson(list);
    return 0;
}

} // namespace ctl
