#include "network/links/networkmanager/services/service_address.h"

#include <net/if.h>

#include "base/ip_address.h"

namespace network {

bool isInterfaceName(const std::string& name)
{
    return !name.empty() && name.size() < IF_NAMESIZE &&
           name.find_first_of("/: \t\n") == std::string::npos;
}

namespace {

// Addresses that no host has: 0.x, loopback, multicast and beyond.
bool isHostAddress(uint32_t address)
{
    uint32_t first = address >> 24;
    return first != 0 && first != 127 && first < 224;
}

uint32_t parsed(const std::string& text)
{
    return base::isIpAddress(text) ? base::ipv4Of(text).value_or(0) : 0;
}

uint32_t firstHostAddress(const BusValue& told)
{
    for (const BusValue& one : told.elements()) {
        uint32_t address = parsed(one.at("address").toText());
        if (isHostAddress(address))
            return address;
    }
    return 0;
}

std::vector<std::string> usableServers(const BusValue& told)
{
    std::vector<std::string> servers;
    for (const BusValue& one : told.elements()) {
        const std::string& server = one.at("address").toText();
        if (parsed(server) != 0)
            servers.push_back(server);
    }
    return servers;
}

} // namespace

void readIp4Config(const BusValue& properties, ServiceAddress* address)
{
    const BusValue& addresses = properties.at("AddressData");
    if (addresses.kind() != BusValue::Kind::None)
        address->address = firstHostAddress(addresses);
    const BusValue& servers = properties.at("NameserverData");
    if (servers.kind() != BusValue::Kind::None)
        address->nameServers = usableServers(servers);
}

} // namespace network
