// What etc/network.json says: which bearer opens links, the machine's interfaces, and scenarios.
#ifndef NETWORK_NETWORK_CONFIG_H
#define NETWORK_NETWORK_CONFIG_H

#include <chrono>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "napi.h"

namespace network {

enum class BearerChoice { Machine, Scenario };

// What becomes of an opening in a scenario.
enum class ScenarioOutcome { Connect, Fail, Silence };

struct Scenario
{
    ScenarioOutcome outcome = ScenarioOutcome::Connect;
    std::chrono::milliseconds after{0};                  // from the opening to its outcome
    std::optional<std::chrono::milliseconds> breakAfter; // from connecting to breaking
    uint16_t cause1 = NAPI_CAUSE_NO_SERVICE;
    uint16_t cause2 = 0;
    std::string device = "lo";
    uint32_t address = 0x7F000001;
    std::vector<std::string> nameServers;
};

struct NetworkConfig
{
    BearerChoice bearer = BearerChoice::Machine;
    // The interface for WiFi and for cellular data. Without a value the machine's usual interface
    // serves; an empty name says that the machine has none of the kind.
    std::optional<std::string> wifi;
    std::optional<std::string> cellular;
    Scenario defaultScenario;
    std::map<std::string, Scenario> scenarios; // by profile name
    unsigned maxProfiles = 1024;
    std::chrono::milliseconds minute{60000}; // the length of a minute of the idle time-outs

    const Scenario& scenarioFor(const std::string& profile) const
    {
        auto found = scenarios.find(profile);
        return found == scenarios.end() ? defaultScenario : found->second;
    }
};

// The configuration as the file below the present root says now. The file is looked at in each call
// and read when it has changed; what is wrong in it is then told on standard error, once. Never
// null. Called from any thread.
std::shared_ptr<const NetworkConfig> networkConfig();

} // namespace network

#endif
