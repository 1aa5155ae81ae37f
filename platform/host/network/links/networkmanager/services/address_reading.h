// Asks for the network interface of a device that is up, for its address and its name servers.
#ifndef NETWORK_NETWORKMANAGER_ADDRESS_READING_H
#define NETWORK_NETWORKMANAGER_ADDRESS_READING_H

#include <functional>
#include <string>
#include <vector>

#include "network/links/networkmanager/bus/bus_connection.h"

namespace network {

// What was told; the name is "" and the address 0 while there is none.
struct ServiceAddress
{
    std::string interface;
    uint32_t address = 0; // first octet in the most significant byte
    std::vector<std::string> nameServers;

    bool complete() const { return !interface.empty() && address != 0; }
};

// The first usable address and all name servers of an IP4Config.
void readIp4Config(const BusValue& properties, ServiceAddress* address);

// A name that the kernel could have given: 1 to 15 bytes, without '/', ':' and blanks.
bool isInterfaceName(const std::string& name);

class AddressReading
{
public:
    using Done = std::function<void(const ServiceAddress&)>;

    // The answer comes to `done`, once, complete or not. A later start takes back an earlier one.
    void start(BusConnection& bus, const std::string& device, Done done);

private:
    void askConfig(BusConnection& bus, const BusValue& properties);
    void finish();

    Done m_done;
    ServiceAddress m_address;
    BusSlot m_device;
    BusSlot m_config;
};

} // namespace network

#endif
