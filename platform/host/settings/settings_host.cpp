#include "settings/settings_host.h"

#include "base/root.h"
#include "settings/settings_files.h"

namespace settingshost {

namespace {

std::string below(const char* name)
{
    const std::string root = base::rootFolder();
    return root.empty() ? root : root + "/etc/" + name;
}

} // namespace

std::string settingsFile()
{
    return below("settings.json");
}

std::string featuresFile()
{
    return below("features.json");
}

bool isReadAsInteger(const std::string& name)
{
    return settingsfiles::knownNode(name) != nullptr;
}

Result getSetting(const std::string& name, Setting* setting)
{
    if (!settingsfiles::isNodeName(name))
        return {Code::Name, "a node name is 1 to 255 bytes of UTF-8 without control characters"};
    std::vector<settingsfiles::Leaf> leaves;
    if (Result result = settingsfiles::readLeaves(&leaves, {}); !result.isOk())
        return result;
    for (const settingsfiles::Leaf& leaf : leaves) {
        if (leaf.name != name)
            continue;
        if (!leaf.problem.empty())
            return {Code::Unusable, leaf.problem};
        *setting = leaf.value;
        return {};
    }
    return {Code::NoNode, "there is no node " + name + " in " + settingsFile()};
}

Result listSettings(Settings* settings)
{
    std::vector<settingsfiles::Leaf> leaves;
    if (Result result = settingsfiles::readLeaves(&leaves, {}); !result.isOk())
        return result;
    settings->clear();
    for (const settingsfiles::Leaf& leaf : leaves)
        if (leaf.problem.empty() && settingsfiles::isNodeName(leaf.name))
            settings->emplace_back(leaf.name, leaf.value);
    return {};
}

Result listFeatures(Features* features)
{
    std::map<int, settingsfiles::FeatureLine> lines;
    if (Result result = settingsfiles::readFeatures(&lines, {}); !result.isOk())
        return result;
    features->clear();
    for (const auto& [number, line] : lines)
        features->emplace_back(number, line.isAvailable);
    return {};
}

const char* featureText(int number)
{
    return number == 431 ? "WiFi" : "";
}

} // namespace settingshost
