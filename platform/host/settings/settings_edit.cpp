// Changing the two files.
#include <cerrno>
#include <cstring>
#include <functional>

#include <nlohmann/json.hpp>
#include <sys/stat.h>

#include "base/configuration_folder.h"
#include "base/json_document.h"
#include "settings/settings_files.h"
#include "settings/settings_host.h"

namespace settingshost {

using base::JsonDocument;

namespace {

Result failed(const std::string& path, int error)
{
    const Code code = settingsfiles::codeOf(error);
    if (code == Code::Busy)
        return {code, path + ": another program is writing and has not ended for 10 seconds"};
    if (code == Code::NotSynced)
        return {code, path +
                          ": the change is made, but the disk has not confirmed that it outlives "
                          "a loss of power"};
    return {code, path + ": " + std::strerror(error)};
}

// A file keeps its mode; a new one can be read by everybody.
mode_t modeOf(const std::string& path)
{
    struct stat status;
    return stat(path.c_str(), &status) == 0 ? status.st_mode & 0777 : 0644;
}

// What a file is to hold, made of what it holds; "" when there is nothing to be changed in it.
typedef std::function<std::string(const JsonDocument&)> Edit;

Result change(const std::string& path, const Edit& edit, const Result& ifUnchanged)
{
    constexpr std::size_t largest = 4 * 1024 * 1024;
    if (Result root = settingsfiles::checkRoot(); !root.isOk())
        return root;
    base::ConfigurationFolder folder;
    if (const int error = folder.open())
        return failed(folder.path(), error);
    const JsonDocument document = JsonDocument::read(path, {});
    if (Result result = settingsfiles::checkDocument(document, {}); !result.isOk())
        return result;
    const std::string bytes = edit(document);
    if (bytes.empty())
        return ifUnchanged;
    if (bytes.size() > largest)
        return {Code::Full, path + ": the file would grow beyond 4 MiB"};
    const int error = folder.replace(path.substr(folder.path().size() + 1), bytes, modeOf(path));
    return error == 0 ? Result() : failed(path, error);
}

Result put(const std::string& path, const std::string& name, const nlohmann::json& value)
{
    return change(
        path, [&](const JsonDocument& document) { return document.withMember(name, value.dump()); },
        {});
}

// Where there is no file, none is made.
Result take(const std::string& path, const std::string& name, const std::string& ifMissing)
{
    const Result missing = {Code::NoNode, ifMissing + " in " + path};
    struct stat status;
    if (Result root = settingsfiles::checkRoot(); !root.isOk())
        return root;
    if (stat(path.c_str(), &status) != 0 && errno == ENOENT)
        return missing;
    return change(
        path, [&](const JsonDocument& document) { return document.withoutMember(name); }, missing);
}

Result badName()
{
    return {Code::Name, "a node name is 1 to 255 bytes of UTF-8 without control characters"};
}

Result badNumber()
{
    return {Code::Number, "a feature number is 1 to 2147483647"};
}

nlohmann::json jsonOf(const Setting& setting)
{
    switch (setting.type) {
    case Setting::Type::Integer:
        return setting.integer;
    case Setting::Type::Text:
        return setting.text;
    case Setting::Type::Boolean:
        return setting.boolean;
    }
    return {};
}

} // namespace

Result setSetting(const std::string& name, const Setting& setting)
{
    if (!settingsfiles::isNodeName(name))
        return badName();
    if (setting.type == Setting::Type::Text && !settingsfiles::isNodeText(setting.text))
        return {Code::Value, "a node's text is UTF-8 without NUL, of at most 4096 bytes"};
    return put(settingsFile(), name, jsonOf(setting));
}

Result setFeature(int number, bool isAvailable)
{
    if (number <= 0)
        return badNumber();
    return put(featuresFile(), std::to_string(number), isAvailable);
}

Result removeSetting(const std::string& name)
{
    return settingsfiles::isNodeName(name) ? take(settingsFile(), name, "there is no node " + name)
                                           : badName();
}

Result removeFeature(int number)
{
    const std::string name = std::to_string(number);
    return number > 0 ? take(featuresFile(), name, "there is no feature " + name) : badNumber();
}

} // namespace settingshost
