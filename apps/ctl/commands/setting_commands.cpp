// The settings of the device-management tree.
#include <map>

#include "commands/deleting.h"
#include "commands/integer_text.h"
#include "commands/settings_result.h"
#include "failure.h"
#include "line/request.h"
#include "listing.h"
#include "output.h"
#include "terminal_text.h"

namespace ctl {

namespace {

using settingshost::Code;
using settingshost::Result;
using settingshost::Setting;

void check(const Result& result, const std::string& action)
{
    checkSettings(result, action, "\"vornctl setting list\" shows the settings.");
}

const char* typeName(Setting::Type type)
{
    switch (type) {
    case Setting::Type::Integer:
        return "integer";
    case Setting::Type::Text:
        return "text";
    case Setting::Type::Boolean:
        return "truth";
    }
    return "";
}

std::string valueText(const Setting& setting)
{
    switch (setting.type) {
    case Setting::Type::Integer:
        return std::to_string(setting.integer);
    case Setting::Type::Text:
        return setting.text;
    case Setting::Type::Boolean:
        return setting.boolean ? "true" : "false";
    }
    return {};
}

Json jsonOf(const std::string& name, const Setting& setting)
{
    Json json = {{"name", name}, {"type", typeName(setting.type)}};
    switch (setting.type) {
    case Setting::Type::Integer:
        json["value"] = setting.integer;
        break;
    case Setting::Type::Text:
        json["value"] = setting.text;
        break;
    case Setting::Type::Boolean:
        json["value"] = setting.boolean;
        break;
    }
    return json;
}

// The type that was asked for, else the one that it is read as, else the one that the setting has,
// else what the value looks like.
Setting::Type typeFor(const Request& request)
{
    for (const Setting::Type type :
         {Setting::Type::Integer, Setting::Type::Text, Setting::Type::Boolean})
        if (request.type == typeName(type))
            return type;
    if (settingshost::isReadAsInteger(request.name))
        return Setting::Type::Integer;
    Setting stored;
    const Result result = settingshost::getSetting(request.name, &stored);
    if (result.isOk())
        return stored.type;
    if (request.value == "true" || request.value == "false")
        return Setting::Type::Boolean;
    return looksLikeInteger(request.value) ? Setting::Type::Integer : Setting::Type::Text;
}

Setting settingFor(const Request& request)
{
    Setting setting;
    setting.type = typeFor(request);
    setting.text = request.value;
    setting.boolean = request.value == "true";
    const bool isInteger = integerOf(request.value, &setting.integer);
    const std::string shown = inQuotes(request.value);
    if (setting.type == Setting::Type::Integer && !isInteger)
        throw Failure(Exit::Usage,
                      shown + " does not fit; " + inQuotes(request.name) +
                          " takes an integer from -2147483648 to 2147483647.",
                      settingshost::isReadAsInteger(request.name)
                          ? "Programs read this setting as an integer; --type stores another type."
                          : "--type text stores it as a text.");
    if (setting.type == Setting::Type::Boolean && !setting.boolean && request.value != "false")
        throw Failure(Exit::Usage,
                      shown + " does not fit; " + inQuotes(request.name) + " takes true or false.",
                      "--type gives the setting another type.");
    return setting;
}

} // namespace

int settingGet(const Request& request)
{
    Setting setting;
    check(settingshost::getSetting(request.name, &setting),
          "read the setting " + inQuotes(request.name));
    if (request.json)
        printJson(jsonOf(request.name, setting));
    else
        print(printable(valueText(setting)) + '\n');
    return 0;
}

int settingSet(const Request& request)
{
    const Setting setting = settingFor(request);
    check(settingshost::setSetting(request.name, setting),
          "change the setting " + inQuotes(request.name));
    if (request.json)
        printJson(jsonOf(request.name, setting));
    return 0;
}

int settingDelete(const Request& request)
{
    const auto isThere = [](const std::string& name) {
        Setting stored;
        const Result result = settingshost::getSetting(name, &stored);
        if (result.code != Code::Unusable) // what cannot be used can be removed
            check(result, "delete the setting " + inQuotes(name));
    };
    const auto remove = [](const std::string& name) {
        check(settingshost::removeSetting(name), "delete the setting " + inQuotes(name));
    };
    return deleteEach(request, {isThere, remove, [](const std::string& name) {
                                    return Json({{"name", name}});
                                }});
}

int settingList(const Request& request)
{
    settingshost::Settings settings;
    const std::vector<std::string> all = {"name", "type", "value"};
    Listing listing(request, chosenFields(request, all, all));
    check(settingshost::listSettings(&settings), "list the settings");
    for (const auto& [name, setting] : settings) {
        const std::string text = valueText(setting);
        const std::map<std::string, Cell> cells = {
            {"name", {name, name, name}},
            {"type", {typeName(setting.type), typeName(setting.type), typeName(setting.type)}},
            {"value", {text, text, jsonOf(name, setting)["value"]}}};
        listing.add(cells);
    }
    listing.print("no setting is stored; \"vornctl setting set NAME VALUE\" adds one.");
    return 0;
}

} // namespace ctl
