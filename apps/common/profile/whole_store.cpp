#include "profile/whole_store.h"

#include <filesystem>

#include "failure.h"
#include "network/napi_host.h"
#include "profile/store.h"
#include "terminal_text.h"
#include "vornqtnapi_texts.h"

namespace ctl {

std::vector<Unread>
readEach(const std::vector<std::string>& names,
         const std::function<void(const std::string&, const NetworkProfile&)>& use)
{
    std::vector<Unread> unread;
    for (const std::string& name : names) {
        NetworkProfile record = {};
        const int result = NAPI_ReadProfile(name.c_str(), &record, 0, 0);
        if (result >= 0)
            use(name, record);
        else if (result != NAPI_ERR_NO_PROFILE)
            unread.push_back({name, result});
    }
    return unread;
}

using Entry = std::filesystem::directory_entry;

namespace {

std::size_t countEntries(bool (*counts)(const Entry&))
{
    std::size_t count = 0;
    std::error_code error;
    std::filesystem::directory_iterator entry(napihost::profilesFolder(), error);
    for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error))
        if (counts(*entry))
            ++count;
    return count;
}

} // namespace

std::size_t countProfiles()
{
    return countEntries([](const Entry& entry) {
        std::error_code ignored;
        return nameProblem(entry.path().filename().native()).empty() &&
               entry.is_directory(ignored) && !entry.is_symlink(ignored);
    });
}

std::size_t countUnlisted(std::size_t listed)
{
    const std::size_t count =
        countEntries([](const Entry& entry) { return entry.path().filename().native()[0] != '.'; });
    return count > listed ? count - listed : 0;
}

void failUnread(const std::vector<Unread>& unread)
{
    if (unread.empty())
        return;
    if (unread.size() == 1)
        failNapi(unread[0].result, "read the profile", &unread[0].name);
    std::string text = "cannot read " + std::to_string(unread.size()) + " profiles:";
    for (const Unread& one : unread)
        text += "\n  " + inQuotes(one.name) + ": " + vornResultText(one.result) + " (" +
                std::to_string(one.result) + ").";
    throw Failure(exitOfResult(unread[0].result), text, "\"vornctl doctor\" tells more.");
}

} // namespace ctl
