#include "network/links/networkmanager/opening/owned_activations.h"

#include <algorithm>

#include "network/links/networkmanager/services/service_names.h"

namespace network {

// A modem that is dialling may take its time to stop. After that its device is tried again.
constexpr auto patience = std::chrono::seconds(10);

void OwnedActivations::own(const OwnActivation& activation)
{
    Activation& entry = m_all[activation.path];
    entry.facts = activation;
    ++entry.links;
}

const OwnActivation* OwnedActivations::findOn(const std::string& device) const
{
    for (const auto& [path, entry] : m_all) {
        if (entry.links > 0 && entry.facts.device == device)
            return &entry.facts;
    }
    return nullptr;
}

bool OwnedActivations::join(const std::string& active)
{
    auto found = m_all.find(active);
    if (found == m_all.end() || found->second.links == 0)
        return false;
    ++found->second.links;
    return true;
}

void OwnedActivations::leave(BusConnection& bus, const std::string& active)
{
    auto found = m_all.find(active);
    if (found == m_all.end() || --found->second.links > 0)
        return;
    if (!bus.isOpen()) {
        m_all.erase(found);
        return;
    }
    BusCall call = bus.call({nm::service, nm::managerPath, nm::manager, "DeactivateConnection"});
    call.path(active);
    // An activation that is not there any more is down.
    Activation& entry = found->second;
    entry.until = Clock::now() + patience;
    auto handler = [&entry](BusMessage& reply) {
        entry.asking = false;
        if (reply.isError())
            entry.until = Clock::time_point::min();
    };
    entry.asking = bus.send(call, handler, &entry.request) == 0;
    if (!entry.asking)
        entry.until = Clock::time_point::min();
}

bool OwnedActivations::isAsking() const
{
    return std::any_of(m_all.begin(), m_all.end(), [](const auto& entry) {
        return entry.second.asking && !entry.second.facts.bound;
    });
}

bool OwnedActivations::isGoingDown(const std::string& device) const
{
    return std::any_of(m_all.begin(), m_all.end(), [&](const auto& entry) {
        return entry.second.links == 0 && entry.second.facts.device == device;
    });
}

bool OwnedActivations::activeChanged(const std::string& active, uint32_t state)
{
    auto found = m_all.find(active);
    if (state != nm::ActiveGone || found == m_all.end() || found->second.links > 0)
        return false;
    m_all.erase(found);
    return true;
}

bool OwnedActivations::deadlinePassed(Clock::time_point now)
{
    std::size_t before = m_all.size();
    for (auto entry = m_all.begin(); entry != m_all.end();)
        entry = entry->second.until <= now ? m_all.erase(entry) : std::next(entry);
    return m_all.size() < before;
}

Clock::time_point OwnedActivations::nextDeadline() const
{
    Clock::time_point next = never;
    for (const auto& [active, entry] : m_all)
        next = std::min(next, entry.until);
    return next;
}

} // namespace network
