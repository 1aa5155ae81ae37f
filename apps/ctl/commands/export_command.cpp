// "profile export": profiles out to a file.
#include <functional>

#include "exchange/exchange_file.h"
#include "failure.h"
#include "line/request.h"
#include "output.h"
#include "private_file.h"
#include "profile/record.h"
#include "profile/store.h"
#include "profile/whole_store.h"

namespace ctl {

namespace {

void deliver(const Request& request, const std::string& bytes)
{
    if (request.file.empty() || request.file == "-")
        print(bytes);
    else
        writePrivateFile(request.file, bytes);
}

int exportRaw(const Request& request)
{
    if (request.names.size() != 1)
        throw Failure(Exit::Usage, "--raw exports exactly one profile.");
    if (!request.showSecrets)
        throw Failure(Exit::Usage, "a raw record holds its passwords.",
                      "Add --show-secrets when they may be written.");
    const NetworkProfile record = readProfile("export the profile", request.names[0]);
    deliver(request, std::string(reinterpret_cast<const char*>(&record), sizeof record));
    return 0;
}

// Whoever saves everything must hear of what is not saved.
std::vector<Unread>
exportAll(const std::function<void(const std::string&, const NetworkProfile&)>& add)
{
    const std::vector<std::string> names = listProfiles();
    const std::vector<Unread> unread = readEach(names, add);
    const std::size_t count = countUnlisted(names.size());
    if (count > 0)
        note(std::to_string(count) + (count == 1 ? " damaged entry is" : " damaged entries are") +
             " not exported; \"vornctl doctor\" tells more.");
    return unread;
}

} // namespace

int profileExport(const Request& request)
{
    if (request.all != request.names.empty())
        throw Failure(Exit::Usage, "name the profiles to export, or use --all.");
    if (request.raw)
        return exportRaw(request);
    Json list = Json::array();
    bool leftOut = false;
    const auto add = [&](const std::string& name, const NetworkProfile& record) {
        list.push_back(exported(name, record, request.showSecrets));
        leftOut = leftOut || (!request.showSecrets && holdsPassword(record));
    };
    std::vector<Unread> unread;
    if (request.all)
        unread = exportAll(add);
    for (const std::string& name : request.names)
        add(name, readProfile("export the profile", name));
    deliver(request, exchangeText(list));
    if (leftOut)
        note("passwords were left out; --show-secrets writes them.");
    failUnread(unread);
    return 0;
}

} // namespace ctl
