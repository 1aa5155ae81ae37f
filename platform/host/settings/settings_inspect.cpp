// Looking for what is wrong in the two files.
#include "base/configuration_folder.h"
#include "base/json_document.h"
#include "settings/settings_files.h"
#include "settings/settings_host.h"

namespace settingshost {

using base::JsonDocument;
using base::JsonProblem;
using base::JsonValue;

namespace {

typedef void (*Check)(const std::string& name, const JsonValue& value);

bool means(const JsonValue& value, const settingsfiles::KnownNode& node)
{
    if (value.kind() != base::JsonKind::Integer)
        return false;
    const int number = settingsfiles::settingOf(value)->integer;
    return number >= node.low && number <= node.high;
}

void checkSetting(const std::string& name, const JsonValue& value)
{
    if (!settingsfiles::isNodeName(name))
        value.reject("a name of 1 to 255 bytes without control characters", {});
    else if (!settingsfiles::settingOf(value))
        value.reject(settingsfiles::settingExpected, "no value");
    else if (const settingsfiles::KnownNode* node = settingsfiles::knownNode(name);
             node && !means(value, *node))
        value.reject(node->expected, node->used);
}

void checkFeature(const std::string& name, const JsonValue& value)
{
    if (settingsfiles::featureNumber(name) == 0)
        value.reject("a feature number as the key, for instance \"431\"", "the file without it");
    else if (!settingsfiles::featureOf(value))
        value.reject(settingsfiles::featureExpected, "false");
}

const char givePermission[] = "give its owner the permission to read it";

std::string remedyFor(const JsonDocument& document)
{
    if (settingsfiles::codeOf(document.error()) == Code::Access)
        return givePermission;
    switch (document.state()) {
    case JsonDocument::State::Unreadable:
        return "put a readable file in its place, or remove it";
    case JsonDocument::State::Broken:
        return "correct the file at this line, or remove it; settings-json.md in the documentation "
               "describes it";
    case JsonDocument::State::Good:
    case JsonDocument::State::Missing:
        break;
    }
    return "correct this line, or remove it; settings-json.md in the documentation describes the "
           "file";
}

void inspect(const std::string& path, const char* used, Check check, std::vector<Finding>* findings)
{
    const JsonDocument document = JsonDocument::read(path, used);
    for (const auto& [name, value] : document.root().members())
        check(name, value);
    for (const JsonProblem& problem : document.problems())
        findings->push_back(
            {base::place(path, problem), base::sentence(problem), remedyFor(document)});
}

// Everybody may read the files; who may change them changes the programs' settings.
void inspectRights(const std::string& path, std::vector<Finding>* findings)
{
    if (const auto concern = base::concernOfRights(path, base::Forbidden::Writing))
        findings->push_back({path, concern->problem, concern->remedy});
}

void inspectLeftover(const std::string& name, std::vector<Finding>* findings)
{
    std::string leftover;
    if (const auto concern = base::concernOfLeftover(name, &leftover))
        findings->push_back({leftover, concern->problem, concern->remedy});
}

} // namespace

std::vector<Finding> inspectSettings()
{
    std::vector<Finding> findings;
    const Result root = settingsfiles::checkRoot();
    if (root.code == Code::Access)
        return {{settingsFile(), "cannot be read: " + root.message,
                 "give the folder's owner the permission to enter it"}};
    if (!root.isOk())
        return {{"VORN_ROOT", root.message, "set VORN_ROOT to the absolute path of a folder"}};
    inspect(settingsFile(), "no settings", checkSetting, &findings);
    inspect(featuresFile(), "no features", checkFeature, &findings);
    for (const std::string& path :
         {base::ConfigurationFolder::path(), settingsFile(), featuresFile()})
        inspectRights(path, &findings);
    for (const char* name : {"settings.json", "features.json"})
        inspectLeftover(name, &findings);
    return findings;
}

} // namespace settingshost
