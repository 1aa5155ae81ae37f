#include "network/links/machine_bearer.h"

#include <algorithm>
#include <cerrno>

#include <net/if.h>

#include "network/links/machine_choice.h"

namespace network {

// A process that is out of descriptors cannot ask the kernel; what has changed is not told again.
constexpr auto retry = std::chrono::seconds(1);

int MachineBearer::start()
{
    m_checkAt = m_up.empty() ? never : Clock::now();
    int error = m_watch.open();
    // Where the kernel offers no netlink, other bearers still work; openings on this one will fail.
    bool exhausted = error == EMFILE || error == ENFILE || error == ENOMEM || error == ENOBUFS;
    return exhausted ? error : 0;
}

void MachineBearer::stop()
{
    m_watch.close();
}

void MachineBearer::open(const Opening& opening)
{
    Interfaces interfaces;
    if (int error = interfaces.read()) {
        m_listener.linkFailed(opening.link, NAPI_CAUSE_UNKNOWN, NAPI_DETAIL_ERRNO + error);
        return;
    }
    MachineChoice choice = chooseInterface(opening.record, *opening.config, interfaces);
    if (choice.cause != NAPI_CAUSE_NONE) {
        m_listener.linkFailed(opening.link, choice.cause, choice.detail);
        return;
    }
    m_up[opening.link] = choice.device;
    m_listener.linkUp(opening.link, choice.device);
}

void MachineBearer::close(int link)
{
    m_up.erase(link);
}

// Changes of the machine's network are nobody's business while no link stands on it.
BearerDescriptors MachineBearer::descriptors() const
{
    return {{{m_up.empty() ? -1 : m_watch.descriptor(), POLLIN, 0}, {-1, 0, 0}}};
}

void MachineBearer::descriptorReady()
{
    if (m_watch.drain())
        checkLinks();
}

Clock::time_point MachineBearer::nextDeadline() const
{
    return m_checkAt;
}

void MachineBearer::deadlinePassed(Clock::time_point now)
{
    if (m_checkAt <= now)
        checkLinks();
}

namespace {

bool stillThere(const Device& device, const Interfaces& interfaces)
{
    const Interface* interface = interfaces.find(device.name);
    if (!interface || !(interface->flags & IFF_UP))
        return false;
    const auto& addresses = interface->addresses;
    return std::find(addresses.begin(), addresses.end(), device.address) != addresses.end();
}

} // namespace

void MachineBearer::checkLinks()
{
    Interfaces interfaces;
    bool known = interfaces.read() == 0;
    m_checkAt = known ? never : Clock::now() + retry;
    if (!known)
        return;
    for (auto entry = m_up.begin(); entry != m_up.end();) {
        if (stillThere(entry->second, interfaces)) {
            ++entry;
            continue;
        }
        int link = entry->first;
        entry = m_up.erase(entry);
        m_listener.linkBroken(link);
    }
}

} // namespace network
