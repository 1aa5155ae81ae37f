#include "network/network_config_reader.h"

#include <climits>

#include <net/if.h>

#include "base/ip_address.h"
#include "base/root.h"

namespace network {

using base::JsonKind;
using base::JsonValue;

constexpr long long dayMs = 24LL * 60 * 60 * 1000;

namespace {

bool isDeviceName(const std::string& name)
{
    return !name.empty() && name.size() < IF_NAMESIZE &&
           name.find_first_of("/: \t\n") == std::string::npos;
}

std::string deviceName(JsonValue value, const std::string& fallback)
{
    std::string name = value.text(fallback);
    if (isDeviceName(name))
        return name;
    value.reject("the name of a network device, 1 to 15 bytes", '"' + fallback + '"');
    return fallback;
}

std::optional<std::string> interfaceName(JsonValue value)
{
    static const std::string usual = "the default route's interface";
    if (!value.present())
        return {};
    if (value.kind() == JsonKind::Text) {
        std::string name = value.text("");
        if (name.empty() || isDeviceName(name))
            return name;
    }
    value.reject("the name of a network device, at most 15 bytes", usual);
    return {};
}

uint32_t address(JsonValue value, uint32_t fallback)
{
    static const char expected[] = "an IPv4 address like \"10.1.2.3\"";
    if (!value.present())
        return fallback;
    if (value.kind() == JsonKind::Text)
        if (const std::optional<uint32_t> parsed = base::ipv4Of(value.text("")))
            return *parsed;
    value.reject(expected, "\"127.0.0.1\"");
    return fallback;
}

std::vector<std::string> addressTexts(JsonValue list)
{
    std::vector<std::string> texts;
    std::vector<JsonValue> wrong;
    for (const JsonValue& one : list.elements()) {
        std::string text = one.kind() == JsonKind::Text ? one.text("") : "";
        if (base::isIpAddress(text))
            texts.push_back(text);
        else
            wrong.push_back(one);
    }
    const char* used = texts.empty() ? "no name server" : "the other name servers";
    for (const JsonValue& one : wrong)
        one.reject("an IP address as text", used);
    return texts;
}

ScenarioOutcome outcome(JsonValue value)
{
    std::string text = value.choice({"connect", "fail", "never"}, "connect");
    if (text == "fail")
        return ScenarioOutcome::Fail;
    return text == "never" ? ScenarioOutcome::Never : ScenarioOutcome::Connect;
}

// A default of zero would break the link at once, so what is no length of time is no breaking at
// all.
std::optional<Milliseconds> breakAfter(JsonValue value)
{
    if (!value.present())
        return {};
    long long length = -1;
    if (value.kind() == JsonKind::Integer)
        length = value.integer(LLONG_MIN, LLONG_MAX, -1);
    if (length >= 0 && length <= dayMs)
        return Milliseconds(length);
    value.reject("an integer from 0 to " + std::to_string(dayMs), "no breaking");
    return {};
}

Scenario scenario(JsonValue value)
{
    Scenario read;
    read.outcome = outcome(value.at("outcome"));
    read.after = Milliseconds(value.at("afterMs").integer(0, dayMs, 0));
    read.cause = static_cast<uint16_t>(value.at("cause").integer(1, 65535, NAPI_CAUSE_NO_SERVICE));
    read.detail = static_cast<uint16_t>(value.at("detail").integer(0, 65535, 0));
    read.device = deviceName(value.at("device"), read.device);
    read.address = address(value.at("address"), read.address);
    read.nameServers = addressTexts(value.at("nameServers"));
    read.breakAfter = breakAfter(value.at("breakAfterMs"));
    return read;
}

BearerChoice bearer(JsonValue value)
{
    std::string name = value.choice({"machine", "scenario", "networkmanager"}, "machine");
    if (name == "scenario")
        return BearerChoice::Scenario;
    return name == "networkmanager" ? BearerChoice::NetworkManager : BearerChoice::Machine;
}

void readGuards(JsonValue value, GuardTimes* guards)
{
    const std::pair<const char*, Milliseconds*> keys[] = {{"replyMs", &guards->reply},
                                                          {"cellularMs", &guards->cellular},
                                                          {"wifiMs", &guards->wifi},
                                                          {"secretMs", &guards->secret}};
    for (const auto& [key, time] : keys)
        *time = Milliseconds(value.at(key).integer(1, dayMs, time->count()));
}

} // namespace

std::string networkConfigPath()
{
    std::string root = base::rootFolder();
    return root.empty() ? "" : root + "/etc/network.json";
}

NetworkConfig readNetworkConfig(base::JsonDocument& document)
{
    NetworkConfig config;
    JsonValue root = document.root();
    config.bearer = bearer(root.at("bearer"));
    config.wifi = interfaceName(root.at("interfaces").at("wifi"));
    config.cellular = interfaceName(root.at("interfaces").at("cellular"));
    config.takeOver = root.at("takeOver").boolean(config.takeOver);
    config.roaming = root.at("roaming").boolean(config.roaming);
    config.nameServersFirst = root.at("nameServersFirst").boolean(config.nameServersFirst);
    readGuards(root.at("guards"), &config.guards);
    config.defaultScenario = scenario(root.at("scenario").at("default"));
    for (const auto& [profile, told] : root.at("scenario").at("profiles").members())
        config.scenarios[profile] = scenario(told);
    config.maxProfiles =
        static_cast<unsigned>(root.at("maxProfiles").integer(1, 65535, config.maxProfiles));
    config.minute = Milliseconds(root.at("minuteMs").integer(1, 60000, config.minute.count()));
    document.rejectUnknownKeys("the file without it");
    return config;
}

} // namespace network
