#include "network/links/machine_interfaces.h"

#include <algorithm>
#include <cerrno>
#include <new>

#include <arpa/inet.h>
#include <ifaddrs.h>
#include <linux/if_link.h>
#include <net/if.h>
#include <netinet/in.h>
#include <netpacket/packet.h>

namespace network {

Interface& Interfaces::entry(const std::string& name)
{
    for (Interface& interface : m_all) {
        if (interface.name == name)
            return interface;
    }
    m_all.emplace_back().name = name;
    return m_all.back();
}

namespace {

// An address that has a label of its own is listed under it: "eth0:1" is the device eth0.
std::string deviceName(const char* label)
{
    std::string name = label;
    return name.substr(0, name.find(':'));
}

} // namespace

void Interfaces::take(const ifaddrs* list)
{
    for (const ifaddrs* one = list; one; one = one->ifa_next) {
        Interface& interface = entry(deviceName(one->ifa_name));
        interface.flags |= one->ifa_flags;
        if (!one->ifa_addr)
            continue;
        if (one->ifa_addr->sa_family == AF_INET) {
            auto address = reinterpret_cast<const sockaddr_in*>(one->ifa_addr);
            interface.addresses.push_back(ntohl(address->sin_addr.s_addr));
        } else if (one->ifa_addr->sa_family == AF_PACKET && one->ifa_data) {
            auto statistics = static_cast<const rtnl_link_stats*>(one->ifa_data);
            interface.packets = uint64_t{statistics->rx_packets} + statistics->tx_packets;
        }
    }
}

// The engine's thread has nobody to whom it could leave an exception, so a lack of memory is an
// answer like the others.
int Interfaces::read()
{
    m_all.clear();
    ifaddrs* list = nullptr;
    if (::getifaddrs(&list) != 0)
        return errno;
    int error = 0;
    try {
        take(list);
    } catch (const std::bad_alloc&) {
        m_all.clear();
        error = ENOMEM;
    }
    ::freeifaddrs(list);
    return error;
}

const Interface* Interfaces::find(const std::string& name) const
{
    auto found = std::find_if(m_all.begin(), m_all.end(),
                              [&](const Interface& one) { return one.name == name; });
    return found == m_all.end() ? nullptr : &*found;
}

const Interface* Interfaces::loopback() const
{
    auto found = std::find_if(m_all.begin(), m_all.end(),
                              [](const Interface& one) { return one.flags & IFF_LOOPBACK; });
    return found == m_all.end() ? nullptr : &*found;
}

uint64_t Interfaces::packets(const std::string& name) const
{
    const Interface* interface = find(name);
    return interface ? interface->packets : 0;
}

} // namespace network
