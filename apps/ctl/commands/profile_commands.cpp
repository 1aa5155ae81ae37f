// The commands over one profile, and the list.
#include "failure.h"
#include "line/request.h"
#include "output.h"
#include "profile/record.h"
#include "profile/secrets.h"
#include "profile/store.h"
#include "profile/values.h"
#include "profile/whole_store.h"
#include "terminal_text.h"

namespace ctl {

namespace {

// Every record that an editor has stored bears this mark.
constexpr std::uint8_t editedMark = 1;

int done(const Request& request, const std::string& name, const NetworkProfile& record)
{
    if (request.json)
        printJson(describe(name, record, request.showSecrets));
    return 0;
}

void printNames(const std::vector<std::string>& names)
{
    std::string text;
    for (const std::string& name : names)
        text += printable(name) + '\n';
    print(text);
}

// Who misses a profile in the list learns where to look for it.
void noteUnlisted(std::size_t count)
{
    if (count == 1)
        note("1 damaged entry is not listed; \"vornctl doctor\" tells more.");
    else
        note(std::to_string(count) +
             " damaged entries are not listed; \"vornctl doctor\" tells more.");
}

std::vector<Unread> printList(const std::vector<std::string>& names)
{
    Table table({"NAME", "PREFERENCE", "APN", "CSD NUMBER"});
    const Field* columns[] = {findField("preference"), findField("apn"), findField("csd-number")};
    const std::vector<Unread> unread =
        readEach(names, [&](const std::string& name, const NetworkProfile& record) {
            std::vector<std::string> cells = {name};
            for (const Field* field : columns)
                cells.push_back(shownText(*field, record, false));
            table.add(std::move(cells));
        });
    print(table.text());
    if (const std::size_t unlisted = countUnlisted(names.size()))
        noteUnlisted(unlisted);
    else if (names.empty())
        note("no profile is stored; \"vornctl profile create NAME apn=...\" makes one.");
    return unread;
}

std::vector<Unread> printJsonList(const std::vector<std::string>& names, bool secrets)
{
    Json list = Json::array();
    const std::vector<Unread> unread =
        readEach(names, [&](const std::string& name, const NetworkProfile& record) {
            list.push_back(describe(name, record, secrets));
        });
    printJson(list);
    return unread;
}

} // namespace

int profileList(const Request& request)
{
    const std::vector<std::string> names = listProfiles();
    if (request.json && request.onlyNames)
        printJson(Json(names));
    else if (request.onlyNames)
        printNames(names);
    else
        failUnread(request.json ? printJsonList(names, request.showSecrets) : printList(names));
    return 0;
}

int profileShow(const Request& request)
{
    const NetworkProfile record = readProfile("show the profile", request.name);
    if (request.json)
        return done(request, request.name, record);
    Table table({"Name", request.name});
    for (const Field& field : fields())
        if (isVisible(field))
            table.add({field.label, shownText(field, record, request.showSecrets)});
    print(table.text());
    return 0;
}

int profileCreate(const Request& request)
{
    NetworkProfile record = {};
    record.storedMark = editedMark;
    assign(request.assignments, record);
    takePasswords(request, record);
    createProfile("create the profile", request.name, record);
    return done(request, request.name, record);
}

int profileSet(const Request& request)
{
    const bool passwords = request.askPassword || request.askCsdPassword ||
                           !request.passwordFile.empty() || !request.csdPasswordFile.empty();
    if (request.assignments.empty() && !passwords)
        throw Failure(Exit::Usage, "nothing to set.",
                      "Give FIELD=VALUE, for example apn=internet.");
    // Everything that may fail or wait for a person comes before the store is held.
    NetworkProfile draft = readProfile("change the profile", request.name);
    assign(request.assignments, draft);
    takePasswords(request, draft);
    NetworkProfile stored = {};
    changeProfile(request.name, [&](NetworkProfile& record) {
        record.storedMark = editedMark;
        assign(request.assignments, record);
        copyPasswords(request, draft, record);
        stored = record;
    });
    return done(request, request.name, stored);
}

int profileCopy(const Request& request)
{
    const NetworkProfile record = readProfile("copy the profile", request.name);
    createProfile("copy the profile " + inQuotes(request.name) + " to", request.newName, record);
    return done(request, request.newName, record);
}

int profileRename(const Request& request)
{
    renameProfile(request.name, request.newName);
    if (request.json)
        printJson({{"name", request.newName}, {"renamed-from", request.name}});
    return 0;
}

int profileDelete(const Request& request)
{
    deleteProfile(request.name);
    if (request.json)
        printJson({{"name", request.name}, {"deleted", true}});
    return 0;
}

} // namespace ctl
