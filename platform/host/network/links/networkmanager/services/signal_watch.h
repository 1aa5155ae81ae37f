// Listens to the changes of state of single objects, and to nothing else on the bus.
#ifndef NETWORK_NETWORKMANAGER_SIGNAL_WATCH_H
#define NETWORK_NETWORKMANAGER_SIGNAL_WATCH_H

#include <functional>
#include <map>
#include <string>

#include "network/links/networkmanager/bus/bus_connection.h"

namespace network {

// Signals of one member of one object, for BusConnection::listen().
std::string signalRule(const char* service, const std::string& path, const char* interface,
                       const char* member);

class SignalWatch
{
public:
    using Handler = std::function<void(const std::string& path, BusMessage& signal)>;

    explicit SignalWatch(Handler handler) : m_handler(std::move(handler)) {}

    // Hears StateChanged of the object from here on. A second time changes nothing.
    void listen(BusConnection& bus, const std::string& path, const char* interface);

    // Stops listening to the objects that are not wanted; not from within a handler.
    void keepOnly(const std::function<bool(const std::string&)>& wanted);

    bool empty() const { return m_slots.empty(); }
    void clear() { m_slots.clear(); }

private:
    Handler m_handler;
    std::map<std::string, BusSlot> m_slots; // by path
};

} // namespace network

#endif
