// The commands over one profile, and the list.
#include "commands/deleting.h"
#include "failure.h"
#include "line/request.h"
#include "listing.h"
#include "operators/operator_profile.h"
#include "output.h"
#include "profile/assignments.h"
#include "profile/columns.h"
#include "profile/record.h"
#include "profile/secrets.h"
#include "profile/store.h"
#include "profile/values.h"
#include "profile/whole_store.h"
#include "terminal_text.h"

namespace ctl {

namespace {

// Every record that an editor has stored bears this mark.
constexpr uint8_t editedMark = 1;

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

// What is read of each profile is what is shown.
std::vector<Unread> printList(const Request& request, const std::vector<std::string>& names)
{
    const std::vector<std::string> columns =
        chosenFields(request, profileColumns(), {"name", "preference", "apn", "csd-number"});
    refuseHiddenPasswords(request, columns);
    Listing listing(request, columns);
    const std::vector<Unread> unread =
        readEach(names, [&](const std::string& name, const NetworkProfile& record) {
            std::vector<Cell> row;
            for (const std::string& column : columns)
                row.push_back(profileCell(column, name, record, request.showSecrets));
            listing.add(row);
        });
    const std::size_t unlisted = countUnlisted(names.size());
    listing.print(unlisted > 0 || !names.empty()
                      ? ""
                      : "no profile is stored; \"vornctl profile create NAME apn=...\" makes one.");
    if (unlisted > 0 && !request.json && !request.terse)
        noteUnlisted(unlisted);
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

// A value that is wider than the terminal goes on below itself.
std::string shownProfile(const std::vector<std::pair<std::string, std::string>>& rows)
{
    constexpr std::size_t labelWidth = 27;
    constexpr std::size_t leastWidth = 20;
    const std::size_t width = outputWidth();
    const std::size_t room =
        width < labelWidth + leastWidth ? std::string::npos : width - labelWidth;
    std::string text;
    for (const auto& [label, value] : rows) {
        std::string lead = label + std::string(labelWidth - label.size(), ' ');
        for (const std::string& piece : folded(printable(value), room)) {
            text += lead + piece + '\n';
            lead.assign(labelWidth, ' ');
        }
    }
    return text;
}

void printForPeople(const Request& request, const NetworkProfile& record,
                    const std::vector<std::string>& columns)
{
    std::vector<std::pair<std::string, std::string>> rows;
    for (const std::string& column : columns) {
        const Field* field = findField(column.c_str());
        const bool isNamed = field || !request.fields.empty();
        if (column == "name" || isNamed)
            rows.emplace_back(column == "name" ? "Name"
                              : field          ? field->label
                                               : column,
                              profileCell(column, request.name, record, request.showSecrets).shown);
    }
    print(shownProfile(rows));
}

} // namespace

int profileList(const Request& request)
{
    const std::vector<std::string> names = listProfiles();
    if (request.json && request.onlyNames)
        printJson(Json(names));
    else if (request.onlyNames)
        printNames(names);
    else if (request.json && request.fields.empty())
        failUnread(printJsonList(names, request.showSecrets));
    else
        failUnread(printList(request, names));
    return 0;
}

int profileShow(const Request& request)
{
    std::vector<std::string> columns = chosenFields(request, profileColumns(), profileColumns());
    if (!request.fields.empty())
        refuseHiddenPasswords(request, columns);
    const NetworkProfile record = readProfile("show the profile", request.name);
    if (request.json && request.fields.empty())
        return done(request, request.name, record);
    if (!request.json && !request.terse) {
        printForPeople(request, record, columns);
        return 0;
    }
    Json object = Json::object();
    std::vector<Cell> row;
    for (const std::string& column : columns) {
        const Field* field = findField(column.c_str());
        if (field && field->kind == Kind::Secret && !request.showSecrets)
            continue;
        row.push_back(profileCell(column, request.name, record, request.showSecrets));
        object[column] = row.back().json;
    }
    if (request.json)
        printJson(object);
    else
        print(terseLine(row));
    return 0;
}

int profileCreate(const Request& request)
{
    NetworkProfile record = {};
    record.storedMark = editedMark;
    takeFromOperator(request, record);
    assign(request, record);
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
    assign(request, draft);
    takePasswords(request, draft);
    NetworkProfile stored = {};
    changeProfile(request.name, [&](NetworkProfile& record) {
        record.storedMark = editedMark;
        assign(request, record);
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
    const auto check = [](const std::string& name) {
        if (!nameProblem(name).empty())
            failNapi(NAPI_ERR_NAME, "delete the profile", &name);
        if (!profileExists(name))
            failNapi(NAPI_ERR_NO_PROFILE, "delete the profile", &name);
    };
    return deleteEach(request, {check, deleteProfile, [](const std::string& name) {
                                    return Json({{"name", name}});
                                }});
}

} // namespace ctl
