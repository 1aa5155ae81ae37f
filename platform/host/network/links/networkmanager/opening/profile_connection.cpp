#include "network/links/networkmanager/opening/profile_connection.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include <arpa/inet.h>

namespace network {

// So high that the machine keeps the default route that it has: programs bind their sockets to the
// link. A connection without any default route would leave those sockets without a way out.
constexpr int64_t routeMetric = 20000;

// Only less than 0 it would keep the servers of all other connections out of the resolver.
constexpr int32_t firstPriority = 1;

namespace {

bool isAccessPointCharacter(char c)
{
    return c > ' ' && c < 0x7F && !std::strchr("\"',;\\", c);
}

bool isDiallingCharacter(char c)
{
    return (static_cast<unsigned char>(c) >= ' ') && c != 0x7F && c != '"';
}

bool isDialled(std::string_view text)
{
    return std::all_of(text.begin(), text.end(), isDiallingCharacter);
}

} // namespace

ProfileFault faultOf(const NetworkProfile& record)
{
    std::string apn = fieldText(record.gprsApn);
    if (apn.empty() || !std::all_of(apn.begin(), apn.end(), isAccessPointCharacter))
        return ProfileFault::AccessPoint;
    if (!isDialled(fieldView(record.gprsUserName)))
        return ProfileFault::UserName;
    return isDialled(fieldView(record.gprsPassword)) ? ProfileFault::None : ProfileFault::Password;
}

namespace {

void addText(ConnectionSettings* settings, const char* section, const char* key, std::string text)
{
    if (!text.empty())
        settings->add(section, key, std::move(text));
}

// Nothing may come from elsewhere: what the service would fill in by itself is left out, and it
// connects when it is told to only.
void addConnection(ConnectionSettings* settings, const char* type, const Opening& opening,
                   const std::string& owner)
{
    settings->add("connection", "id", opening.profile);
    settings->add("connection", "type", std::string(type));
    settings->add("connection", "autoconnect", false);
    if (!owner.empty())
        settings->add("connection", "permissions", std::vector<std::string>{"user:" + owner + ":"});
}

// The service takes addresses in the byte order of the network.
std::vector<uint32_t> profileNameServers(const NetworkProfile& record)
{
    std::vector<uint32_t> servers;
    for (uint32_t address : {record.gprsDns1, record.gprsDns2}) {
        if (address != 0)
            servers.push_back(htonl(address));
    }
    return servers;
}

void addAddressing(ConnectionSettings* settings, const NetworkProfile& record, bool serversFirst)
{
    settings->add("ipv4", "method", std::string("auto"));
    settings->add("ipv4", "route-metric", routeMetric);
    std::vector<uint32_t> servers = profileNameServers(record);
    if (!servers.empty()) {
        settings->add("ipv4", "dns", std::move(servers));
        settings->add("ipv4", "ignore-auto-dns", true);
    }
    if (serversFirst)
        settings->add("ipv4", "dns-priority", firstPriority);
    settings->add("ipv6", "method", std::string("disabled")); // links are told IPv4 addresses only
}

} // namespace

ConnectionSettings packetDataSettings(const Opening& opening, const std::string& owner)
{
    const NetworkProfile& record = opening.record;
    ConnectionSettings settings;
    addConnection(&settings, "gsm", opening, owner);
    addText(&settings, "gsm", "apn", fieldText(record.gprsApn));
    addText(&settings, "gsm", "username", fieldText(record.gprsUserName));
    if (record.gprsPassword[0] != '\0')
        settings.addSecret("gsm", "password", fieldView(record.gprsPassword));
    if (!opening.config->roaming)
        settings.add("gsm", "home-only", true);
    addAddressing(&settings, record, opening.config->nameServersFirst);
    return settings;
}

ConnectionSettings wiredSettings(const Opening& opening, const std::string& owner)
{
    ConnectionSettings settings;
    addConnection(&settings, "802-3-ethernet", opening, owner);
    addAddressing(&settings, opening.record, false);
    return settings;
}

Setting firstNameServers()
{
    return {"ipv4", "dns-priority", firstPriority};
}

} // namespace network
