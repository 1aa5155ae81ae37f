#include "profile/store.h"

#include <memory>

#include "base/profile_name.h"
#include "failure.h"
#include "network/napi_host.h"
#include "profile/whole_store.h"
#include "suggestion.h"
#include "terminal_text.h"
#include "vornqtnapi_texts.h"

namespace ctl {

std::string nameProblem(const std::string& name)
{
    switch (base::problemOfName(name)) {
    case base::NameProblem::None:
        break;
    case base::NameProblem::Empty:
        return "it is empty";
    case base::NameProblem::TooLong:
        return "it has " + std::to_string(name.size()) + " bytes";
    case base::NameProblem::NotUtf8:
        return "it is not valid UTF-8";
    case base::NameProblem::ControlCharacter:
        return "it holds a control character";
    case base::NameProblem::Slash:
        return "it holds a '/'";
    case base::NameProblem::LeadingDot:
        return "it begins with a '.'";
    }
    return {};
}

namespace {

std::string noProfileAdvice(const std::string& name)
{
    std::vector<std::string> names;
    try {
        names = listProfiles();
    } catch (const Failure&) {
        names.clear();
    }
    const std::string closest = suggestion(name, names);
    return closest.empty() ? "\"vornctl profile list\" shows the stored names." : closest;
}

std::string advice(Exit status, const std::string* name)
{
    const std::string root = inQuotes(napihost::rootFolder());
    if (status == Exit::NoProfile && name)
        return noProfileAdvice(*name);
    if (status == Exit::Exists)
        return "Take another name, or change the stored profile with \"vornctl profile set\".";
    if (status == Exit::Name)
        return "A name has 1 to 63 bytes of UTF-8, without '/' and control characters, and does "
               "not begin with '.'.";
    if (status == Exit::Damaged)
        return "\"vornctl doctor\" tells what is wrong with it; \"vornctl profile delete\" removes "
               "it, and \"vornctl profile import --replace\" puts a saved copy in its place.";
    if (status == Exit::NoRoom)
        return "Make room on the disk of " + root + '.';
    if (status == Exit::Access)
        return "Look at the owner and the permissions below " + root +
               ", and whether it is mounted read-only.";
    if (status == Exit::Io)
        return "Look at the kernel's messages about the disk of " + root + ".";
    if (status == Exit::Root && napihost::rootFolder().empty())
        return "No root is named; set VORN_ROOT to the absolute path of a folder.";
    if (status == Exit::Root)
        return "The root is " + root + "; set VORN_ROOT to the absolute path of a folder.";
    if (status == Exit::Busy)
        return "End the program that is writing below " + root + ", and try again.";
    if (status == Exit::NotSynced)
        return notConfirmedAdvice(root);
    return status == Exit::Resources ? "End other programs, and try again." : "";
}

// The limit of profiles has been looked at before.
std::string reasonOf(int result)
{
    return result == NAPI_ERR_MEMORY_FULL ? "no room: the disk or the quota is full"
                                          : vornResultText(result);
}

void check(int result, const std::string& action, const std::string& name)
{
    if (result < 0)
        failNapi(result, action, &name);
}

} // namespace

void failNapi(int result, const std::string& action, const std::string* name)
{
    const Exit status = exitOfResult(result);
    const std::string what = action + (name ? ' ' + inQuotes(*name) : "");
    if (status == Exit::NotSynced)
        throw Failure(status,
                      "done, but the disk has not confirmed it: " + what + " (" +
                          std::to_string(result) + ").",
                      advice(status, name));
    const std::string reason = status == Exit::Name && name ? nameProblem(*name) : reasonOf(result);
    throw Failure(status, "cannot " + what + ": " + reason + " (" + std::to_string(result) + ").",
                  advice(status, name));
}

std::vector<std::string> listProfiles()
{
    // One call is enough unless there are more profiles than slots; only slots that are filled cost
    // anything.
    for (unsigned int slots = 2048;; slots *= 2) {
        const std::unique_ptr<char[]> buffer(new char[std::size_t(slots) * NAPI_PROFILE_NAME_SLOT]);
        unsigned int count = slots;
        const int result = NAPI_ListAllProfile(buffer.get(), &count);
        if (result < 0)
            failNapi(result, "list the profiles", nullptr);
        if (count == slots)
            continue;
        std::vector<std::string> names;
        names.reserve(count);
        for (unsigned int i = 0; i < count; ++i)
            names.emplace_back(&buffer[std::size_t(i) * NAPI_PROFILE_NAME_SLOT]);
        return names;
    }
}

bool profileExists(const std::string& name)
{
    const int result = NAPI_IsProfileValid(name.c_str());
    if (result < 0 && result != NAPI_ERR_NO_PROFILE && result != NAPI_ERR_DAMAGED)
        failNapi(result, "look for the profile", &name);
    return result != NAPI_ERR_NO_PROFILE;
}

NetworkProfile readProfile(const std::string& action, const std::string& name)
{
    NetworkProfile record = {};
    check(NAPI_ReadProfile(name.c_str(), &record, 0, 0), action, name);
    return record;
}

void createProfile(const std::string& action, const std::string& name, const NetworkProfile& record)
{
    const int result = NAPI_CreateProfile(name.c_str(), &record, 0, 0);
    // The network API has one result for both; only a new profile can exceed the limit.
    const std::size_t limit = NAPI_GetMaxProfiles();
    const std::size_t stored = result == NAPI_ERR_MEMORY_FULL ? countProfiles() : 0;
    if (stored > 0 && stored >= limit)
        throw Failure(Exit::NoRoom,
                      "cannot " + action + ' ' + inQuotes(name) + ": at most " +
                          std::to_string(limit) + " profiles are kept, and " +
                          std::to_string(stored) + " are stored (" + std::to_string(result) + ").",
                      "Delete profiles that nobody needs, damaged ones too, or raise "
                      "\"maxProfiles\" in etc/network.json.");
    check(result, action, name);
}

void changeProfile(const std::string& name, const std::function<void(NetworkProfile&)>& change)
{
    check(napihost::changeProfile(name.c_str(), change), "change the profile", name);
}

void modifyProfile(const std::string& name, const NetworkProfile& record)
{
    check(NAPI_ModifyProfile(name.c_str(), &record, 0, 0), "change the profile", name);
}

void renameProfile(const std::string& name, const std::string& newName)
{
    const int result = napihost::renameProfile(name.c_str(), newName.c_str());
    // Only the old name can be missing, and only the new one can be taken.
    const bool newIsBad = result == NAPI_ERR_NAME && nameProblem(name).empty();
    if (newIsBad || result == NAPI_ERR_EXISTS)
        failNapi(result, "rename the profile " + inQuotes(name) + " to", &newName);
    check(result, "rename the profile", name);
}

void deleteProfile(const std::string& name)
{
    check(napihost::deleteProfile(name.c_str()), "delete the profile", name);
}

} // namespace ctl
