#include "network/links/networkmanager/services/signal_watch.h"

#include "network/links/networkmanager/services/service_names.h"

namespace network {

std::string signalRule(const char* service, const std::string& path, const char* interface,
                       const char* member)
{
    return std::string("type='signal',sender='") + service + "',path='" + path + "',interface='" +
           interface + "',member='" + member + "'";
}

void SignalWatch::listen(BusConnection& bus, const std::string& path, const char* interface)
{
    if (m_slots.count(path) != 0)
        return;
    std::string rule = signalRule(nm::service, path, interface, "StateChanged");
    auto handler = [this, path](BusMessage& signal) { m_handler(path, signal); };
    BusSlot slot;
    if (bus.listen(rule, handler, &slot) == 0)
        m_slots.emplace(path, std::move(slot));
}

void SignalWatch::keepOnly(const std::function<bool(const std::string&)>& wanted)
{
    for (auto entry = m_slots.begin(); entry != m_slots.end();)
        entry = wanted(entry->first) ? std::next(entry) : m_slots.erase(entry);
}

} // namespace network
