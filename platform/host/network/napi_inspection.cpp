// What keeps links from opening, as profiles and services tell it.
#include <algorithm>

#include "network/links/machine_choice.h"
#include "network/links/networkmanager/link_inspection.h"
#include "network/napi_host.h"
#include "network/network_config.h"
#include "network/store/profile_reader.h"

namespace {

using napihost::Finding;

// Without an access point name packet data cannot carry a profile, and a call cannot be dialled
// over NetworkManager; WiFi can, where the profile takes it.
bool canBeCarried(const NetworkProfile& record)
{
    std::vector<NapiBearerKind> kinds = network::allowedKinds(record);
    return std::any_of(kinds.begin(), kinds.end(),
                       [](NapiBearerKind kind) { return kind != NAPI_BEARER_CSD; });
}

void inspectProfiles(std::vector<Finding>* findings)
{
    std::vector<std::string> names;
    if (store::listProfiles(&names) != NAPI_OK)
        return;
    for (const std::string& name : names) {
        NetworkProfile record;
        if (store::readProfile(name, &record) == NAPI_OK && !canBeCarried(record))
            findings->push_back({napihost::profilesFolder() + '/' + name + "/profile",
                                 "the profile has no access point name",
                                 "give it one with \"vornctl profile set NAME apn=...\""});
    }
}

} // namespace

namespace napihost {

std::vector<Finding> inspectLinks(int timeLimitMs)
{
    if (network::networkConfig()->bearer != network::BearerChoice::NetworkManager)
        return {};
    std::vector<Finding> findings;
    inspectProfiles(&findings);
    network::inspectServices(timeLimitMs, &findings);
    return findings;
}

} // namespace napihost
