#include "network/links/networkmanager/services/address_reading.h"

#include <utility>

#include <net/if.h>

#include "base/ip_address.h"
#include "network/links/networkmanager/services/service_names.h"
#include "network/links/networkmanager/services/service_picture.h"

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

} // namespace

void readIp4Config(const BusValue& properties, ServiceAddress* address)
{
    for (const BusValue& one : properties.at("AddressData").elements()) {
        uint32_t value = parsed(one.at("address").toText());
        if (address->address == 0 && isHostAddress(value))
            address->address = value;
    }
    for (const BusValue& one : properties.at("NameserverData").elements()) {
        const std::string& server = one.at("address").toText();
        if (parsed(server) != 0)
            address->nameServers.push_back(server);
    }
}

void AddressReading::start(BusConnection& bus, const std::string& device, Done done)
{
    m_address = {};
    m_done = std::move(done);
    m_config = BusSlot();
    BusCall call = bus.call({nm::service, device, propertiesInterface, "GetAll"});
    call.text(nm::device);
    auto handler = [this, &bus](BusMessage& reply) { askConfig(bus, reply.next()); };
    if (bus.send(call, handler, &m_device) != 0)
        finish();
}

void AddressReading::askConfig(BusConnection& bus, const BusValue& properties)
{
    const std::string& name = properties.at("IpInterface").toText();
    m_address.interface = isInterfaceName(name) ? name : "";
    std::string config = objectPath(properties.at("Ip4Config"));
    if (config.empty())
        return finish();
    BusCall call = bus.call({nm::service, config, propertiesInterface, "GetAll"});
    call.text(nm::ip4Config);
    auto handler = [this](BusMessage& reply) {
        readIp4Config(reply.next(), &m_address);
        finish();
    };
    if (bus.send(call, handler, &m_config) != 0)
        finish();
}

void AddressReading::finish()
{
    m_done(m_address);
}

} // namespace network
