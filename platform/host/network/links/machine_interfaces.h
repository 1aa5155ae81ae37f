// What the kernel tells about the machine's network interfaces. No privileges are needed.
#ifndef NETWORK_MACHINE_INTERFACES_H
#define NETWORK_MACHINE_INTERFACES_H

#include <cstdint>
#include <string>
#include <vector>

struct ifaddrs;

namespace network {

struct Interface
{
    std::string name;
    unsigned flags = 0;              // IFF_UP, IFF_LOOPBACK, ... of <net/if.h>
    std::vector<uint32_t> addresses; // IPv4, first octet in the most significant byte
    uint64_t packets = 0;            // received and sent so far; only its changes mean something
};

class Interfaces
{
public:
    // Asks the kernel. Result: 0, or an errno and nothing is known; ENOMEM where an exception would
    // say so elsewhere.
    int read();

    const Interface* find(const std::string& name) const;
    const Interface* loopback() const;

    // The counter of a device; that of a device which the machine does not have stays 0.
    uint64_t packets(const std::string& name) const;

private:
    void take(const ifaddrs* list);
    Interface& entry(const std::string& name);
    std::vector<Interface> m_all;
};

// The interface of the IPv4 default route with the lowest metric, or "".
std::string defaultRouteInterface();

} // namespace network

#endif
