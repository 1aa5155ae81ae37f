// etc/network.json and etc/settings.json: whatever they hold, there is a configuration to go on
// with, and messages that a person can read.
#include "base/json_document.h"
#include "fuzz/target.h"
#include "network/network_config_reader.h"
#include "settings/settings_files.h"

namespace {

void readAsNetwork(const std::string& text)
{
    base::JsonDocument document = base::JsonDocument::parse(text, "network.json");
    const network::NetworkConfig config = network::readNetworkConfig(document);
    fuzz::require(config.maxProfiles > 0, "there is room for a profile");
    fuzz::require(config.minute.count() > 0, "a minute has a length");
    for (const base::JsonProblem& problem : document.problems()) {
        const std::string line = base::describe(document.path(), problem);
        fuzz::require(line.find('\n') == std::string::npos, "a problem is told in one line");
    }
}

void readAsSettings(const std::string& text)
{
    base::JsonDocument document = base::JsonDocument::parse(text, "settings.json");
    for (const auto& [name, value] : document.root().members()) {
        settingsfiles::isNodeName(name);
        settingsfiles::settingOf(value);
        settingsfiles::featureOf(value);
    }
    if (document.root().kind() != base::JsonKind::Object)
        return;
    const std::string edited = document.withMember("Added", "7");
    base::JsonDocument again = base::JsonDocument::parse(edited, "settings.json");
    fuzz::require(again.state() == base::JsonDocument::State::Good, "an edited file is JSON");
    fuzz::require(again.root().at("Added").integer(0, 9, 0) == 7, "an edit can be read");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size)
{
    const std::string text = fuzz::textOf(data, size);
    readAsNetwork(text);
    readAsSettings(text);
    return 0;
}
