// Watches the network interfaces of links that are up: the kernel knows first when a carrier or an
// address is gone.
#ifndef NETWORK_NETWORKMANAGER_INTERFACE_WATCH_H
#define NETWORK_NETWORKMANAGER_INTERFACE_WATCH_H

#include <map>
#include <vector>

#include "network/links/bearer.h"
#include "network/links/machine_interfaces.h"
#include "network/links/netlink_watch.h"

namespace network {

class InterfaceWatch
{
public:
    void add(int link, const Device& device);
    void remove(int link);

    // Stops listening, and keeps the links; resume() looks at all of them at the next deadline.
    void pause();
    void resume();

    int descriptor() const { return m_links.empty() ? -1 : m_news.descriptor(); }
    Clock::time_point nextDeadline() const;

    // Links whose interface is down, or has lost its address, or has been without a carrier for a
    // second; they are not watched any more. To be called when the descriptor is readable, and when
    // the deadline has passed.
    std::vector<int> lost(Clock::time_point now);

private:
    struct Entry
    {
        Device device;
        bool carrier = false; // it had one
        Clock::time_point until = never;
    };

    void listen();
    bool isLost(Entry& entry, const Interfaces& interfaces, Clock::time_point now);

    NetlinkWatch m_news;
    Clock::time_point m_lookAt = never;
    std::map<int, Entry> m_links;
};

} // namespace network

#endif
