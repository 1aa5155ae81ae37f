// The settings of the device-management tree, and the features.
#include <cerrno>
#include <climits>
#include <cstdlib>

#include "failure.h"
#include "line/request.h"
#include "output.h"
#include "settings/settings_host.h"
#include "terminal_text.h"

namespace ctl {

namespace {

using settingshost::Code;
using settingshost::Result;
using settingshost::Setting;

Exit exitOf(Code code)
{
    switch (code) {
    case Code::Ok:
        return Exit::Done;
    case Code::Name:
    case Code::Number:
    case Code::Value:
        return Exit::Usage;
    case Code::NoNode:
        return Exit::NoEntry;
    case Code::Unusable:
    case Code::Broken:
        return Exit::Configuration;
    case Code::Root:
        return Exit::Root;
    case Code::Access:
        return Exit::Access;
    case Code::Full:
        return Exit::NoRoom;
    case Code::Io:
    case Code::NotSynced:
        return Exit::Io;
    case Code::Busy:
        return Exit::Resources;
    }
    return Exit::Internal;
}

const char* adviceFor(Code code)
{
    switch (code) {
    case Code::Ok:
        return "";
    case Code::Busy:
        return "End the other program, and try again.";
    case Code::Io:
    case Code::NotSynced:
        return "Look at the kernel's messages about the disk.";
    case Code::Name:
        return "A name has 1 to 255 bytes of UTF-8 without control characters.";
    case Code::Number:
        return "A feature number is greater than 0.";
    case Code::Value:
        return "A text has at most 4096 bytes of UTF-8.";
    case Code::NoNode:
        return "\"vornctl setting list\" shows the settings.";
    case Code::Unusable:
    case Code::Broken:
        return "\"vornctl doctor\" shows everything that is wrong; mend the file with an editor.";
    case Code::Root:
        return "Set VORN_ROOT to the absolute path of a folder.";
    case Code::Access:
        return "Look at the owner and the permissions of the file and of the folders above it, and "
               "whether it is mounted read-only.";
    case Code::Full:
        return "Make room on the disk, and try again.";
    }
    return "";
}

void check(const Result& result, const std::string& action)
{
    if (!result.isOk())
        throw Failure(exitOf(result.code),
                      "cannot " + action + ": " + printable(result.message) + '.',
                      adviceFor(result.code));
}

const char* typeName(Setting::Type type)
{
    switch (type) {
    case Setting::Type::Integer:
        return "integer";
    case Setting::Type::Text:
        return "text";
    case Setting::Type::Truth:
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
    case Setting::Type::Truth:
        return setting.truth ? "true" : "false";
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
    case Setting::Type::Truth:
        json["value"] = setting.truth;
        break;
    }
    return json;
}

// The list as the request wants it; people are told what to do about one that is empty.
void printEntries(const Request& request, const Json& list, const Table& table, const char* ifEmpty)
{
    if (request.json) {
        printJson(list);
        return;
    }
    print(table.text());
    if (list.empty())
        note(ifEmpty);
}

// An integer in its form, of whatever size.
bool looksLikeInteger(const std::string& text)
{
    const std::size_t digits = text.compare(0, 1, "-") == 0 ? 1 : 0;
    return text.size() > digits &&
           text.find_first_not_of("0123456789", digits) == std::string::npos;
}

// A whole decimal number of 32 bits.
bool integerOf(const std::string& text, int* value)
{
    if (!looksLikeInteger(text))
        return false;
    errno = 0;
    const long long number = std::strtoll(text.c_str(), nullptr, 10);
    *value = static_cast<int>(number);
    return errno == 0 && number >= INT_MIN && number <= INT_MAX;
}

// The type that was asked for, else the one that it is read as, else the one that the setting has,
// else what the value looks like.
Setting::Type typeFor(const Request& request)
{
    for (const Setting::Type type :
         {Setting::Type::Integer, Setting::Type::Text, Setting::Type::Truth})
        if (request.type == typeName(type))
            return type;
    if (settingshost::isReadAsInteger(request.name))
        return Setting::Type::Integer;
    Setting stored;
    const Result result = settingshost::getSetting(request.name, &stored);
    if (result.isOk())
        return stored.type;
    if (request.value == "true" || request.value == "false")
        return Setting::Type::Truth;
    return looksLikeInteger(request.value) ? Setting::Type::Integer : Setting::Type::Text;
}

Setting settingFor(const Request& request)
{
    Setting setting;
    setting.type = typeFor(request);
    setting.text = request.value;
    setting.truth = request.value == "true";
    const bool isInteger = integerOf(request.value, &setting.integer);
    const std::string shown = inQuotes(request.value);
    if (setting.type == Setting::Type::Integer && !isInteger)
        throw Failure(Exit::Usage,
                      shown + " does not fit; " + inQuotes(request.name) +
                          " takes an integer from -2147483648 to 2147483647.",
                      settingshost::isReadAsInteger(request.name)
                          ? "Programs read this setting as an integer; --type stores another type."
                          : "--type text stores it as a text.");
    if (setting.type == Setting::Type::Truth && !setting.truth && request.value != "false")
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

int settingList(const Request& request)
{
    settingshost::Settings settings;
    check(settingshost::listSettings(&settings), "list the settings");
    Table table({"NAME", "TYPE", "VALUE"});
    Json list = Json::array();
    for (const auto& [name, setting] : settings) {
        table.add({name, typeName(setting.type), valueText(setting)});
        list.push_back(jsonOf(name, setting));
    }
    printEntries(request, list, table,
                 "no setting is stored; \"vornctl setting set NAME VALUE\" adds one.");
    return 0;
}

int featureList(const Request& request)
{
    settingshost::Features features;
    check(settingshost::listFeatures(&features), "list the features");
    Table table({"NUMBER", "AVAILABLE", "MEANING"});
    Json list = Json::array();
    for (const auto& [number, isAvailable] : features) {
        const char* meaning = settingshost::featureText(number);
        table.add({std::to_string(number), isAvailable ? "yes" : "no", *meaning ? meaning : "-"});
        list.push_back({{"number", number}, {"available", isAvailable}, {"meaning", meaning}});
    }
    printEntries(request, list, table,
                 "no feature is stored; \"vornctl feature set NUMBER on\" adds one.");
    return 0;
}

int featureSet(const Request& request)
{
    int number = 0;
    if (!integerOf(request.name, &number))
        throw Failure(Exit::Usage, inQuotes(request.name) + " is no feature number.",
                      adviceFor(Code::Number));
    const bool on = request.value == "on";
    if (!on && request.value != "off")
        throw Failure(Exit::Usage,
                      inQuotes(request.value) + " does not fit; a feature is on or off.");
    check(settingshost::setFeature(number, on), "change the feature " + std::to_string(number));
    if (request.json)
        printJson({{"number", number},
                   {"available", on},
                   {"meaning", settingshost::featureText(number)}});
    return 0;
}

} // namespace ctl
