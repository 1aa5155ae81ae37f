#include "network/links/networkmanager/opening/interface_watch.h"

#include <algorithm>

#include <net/if.h>

namespace network {

// Shorter interruptions are repaired by the network; NetworkManager itself waits for six seconds.
constexpr auto withoutCarrier = std::chrono::seconds(1);

// Where the kernel tells no news, or does not answer, it is asked again.
constexpr auto retry = std::chrono::seconds(1);

namespace {

bool hasCarrier(const Interfaces& interfaces, const std::string& name)
{
    const Interface* interface = interfaces.find(name);
    return interface && (interface->flags & IFF_RUNNING);
}

} // namespace

void InterfaceWatch::listen()
{
    if (m_news.descriptor() < 0)
        m_news.open();
    m_lookAt = Clock::now();
}

void InterfaceWatch::add(int link, const Device& device)
{
    Interfaces interfaces;
    interfaces.read();
    m_links[link] = {device, hasCarrier(interfaces, device.name), never};
    listen();
}

void InterfaceWatch::remove(int link)
{
    m_links.erase(link);
    if (m_links.empty())
        pause();
}

void InterfaceWatch::pause()
{
    m_news.close();
    m_lookAt = never;
}

void InterfaceWatch::resume()
{
    if (!m_links.empty())
        listen();
}

Clock::time_point InterfaceWatch::nextDeadline() const
{
    Clock::time_point next = m_lookAt;
    for (const auto& [link, entry] : m_links)
        next = std::min(next, entry.until);
    return next;
}

// An interface that never had a carrier, as of some modems, is not expected to have one.
bool InterfaceWatch::isLost(Entry& entry, const Interfaces& interfaces, Clock::time_point now)
{
    const Interface* interface = interfaces.find(entry.device.name);
    if (!interface || !(interface->flags & IFF_UP))
        return true;
    const auto& addresses = interface->addresses;
    if (std::find(addresses.begin(), addresses.end(), entry.device.address) == addresses.end())
        return true;
    bool carrier = (interface->flags & IFF_RUNNING) != 0;
    entry.carrier = entry.carrier || carrier;
    if (carrier || !entry.carrier)
        entry.until = never;
    else if (entry.until == never)
        entry.until = now + withoutCarrier;
    return entry.until <= now;
}

std::vector<int> InterfaceWatch::lost(Clock::time_point now)
{
    std::vector<int> lost;
    bool listening = m_news.descriptor() >= 0;
    bool due = nextDeadline() <= now;
    bool changed = listening && m_news.drain();
    if (!due && !changed)
        return lost;
    Interfaces interfaces;
    bool known = interfaces.read() == 0;
    m_lookAt = known && listening ? never : now + retry;
    for (auto entry = m_links.begin(); known && entry != m_links.end();) {
        bool gone = isLost(entry->second, interfaces, now);
        if (gone)
            lost.push_back(entry->first);
        entry = gone ? m_links.erase(entry) : std::next(entry);
    }
    if (m_links.empty())
        pause();
    return lost;
}

} // namespace network
