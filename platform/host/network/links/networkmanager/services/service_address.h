// The network interface of a device that is up, its address and its name servers.
#ifndef NETWORK_NETWORKMANAGER_SERVICE_ADDRESS_H
#define NETWORK_NETWORKMANAGER_SERVICE_ADDRESS_H

#include <string>
#include <vector>

#include "network/links/networkmanager/bus/bus_value.h"

namespace network {

// What was told; the name is "" and the address 0 while there is none.
struct ServiceAddress
{
    std::string interface;
    uint32_t address = 0; // first octet in the most significant byte
    std::vector<std::string> nameServers;

    bool complete() const { return !interface.empty() && address != 0; }
};

// The first usable address and all name servers of an IP4Config; what the properties do not tell
// stays as it is.
void readIp4Config(const BusValue& properties, ServiceAddress* address);

// A name that the kernel could have given: 1 to 15 bytes, without '/', ':' and blanks.
bool isInterfaceName(const std::string& name);

} // namespace network

#endif
