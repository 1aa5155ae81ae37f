// What etc/network.json says: which bearer opens links, the machine's interfaces, and scenarios.
// docs/network-json.md describes the file.
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

using Milliseconds = std::chrono::milliseconds;

inline constexpr unsigned defaultMaxProfiles = 1024;

enum class BearerChoice { Machine, Scenario, NetworkManager };

// What becomes of an opening in a scenario.
enum class ScenarioOutcome { Connect, Fail, Never };

struct Scenario
{
    ScenarioOutcome outcome = ScenarioOutcome::Connect;
    Milliseconds after{0};                  // from the opening to its outcome
    std::optional<Milliseconds> breakAfter; // from connecting to breaking; none for not at all
    uint16_t cause = NAPI_CAUSE_NO_SERVICE; // of a failure
    uint16_t detail = 0;
    std::string device = "lo";
    uint32_t address = 0x7F000001;        // first octet in the most significant byte
    std::vector<std::string> nameServers; // in text form
};

// How long an opening waits for NetworkManager before it has failed.
struct GuardTimes
{
    Milliseconds reply{10000};    // for the answer to a question
    Milliseconds cellular{90000}; // for packet data, registration included
    Milliseconds wifi{60000};     // for WiFi, or the Ethernet in its place
    Milliseconds secret{4500};    // for somebody who knows the PIN or a password
};

struct NetworkConfig
{
    BearerChoice bearer = BearerChoice::Machine;
    // The interface for WiFi and for cellular data. Without a value the machine's usual interface
    // serves; an empty name says that the machine has none of the kind.
    std::optional<std::string> wifi;
    std::optional<std::string> cellular;
    bool takeOver = false; // an access point of ours may replace another one on a modem
    bool roaming = true;
    bool nameServersFirst = false; // of packet data, from the dialling on
    GuardTimes guards;
    Scenario defaultScenario;
    std::map<std::string, Scenario> scenarios; // by profile name
    unsigned maxProfiles = defaultMaxProfiles;
    Milliseconds minute{60000}; // the length of a minute of the idle time-outs

    const Scenario& scenarioFor(const std::string& profile) const
    {
        auto found = scenarios.find(profile);
        return found == scenarios.end() ? defaultScenario : found->second;
    }
};

// The configuration as the file below the present root says now. Each call looks whether it is
// still the same file; a changed one is read, and what is wrong in it told on standard error, a
// line for each thing, once. Never null. Called from any thread.
std::shared_ptr<const NetworkConfig> networkConfig();

} // namespace network

#endif
