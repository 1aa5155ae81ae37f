// A connection to the bus for a tool that has nothing else to do than to wait for the answer.
#ifndef NETWORK_NETWORKMANAGER_BUS_WAIT_H
#define NETWORK_NETWORKMANAGER_BUS_WAIT_H

#include "network/links/networkmanager/bus/bus_connection.h"

namespace network {

class BusWait
{
public:
    explicit BusWait(std::chrono::milliseconds limit) : m_until(Clock::now() + limit) {}

    int open() { return m_bus.open(); }
    BusConnection& bus() { return m_bus; }

    // Handles what arrives until `done` is true. Result: 0; ETIMEDOUT when the limit, which counts
    // from the beginning, has passed before; or the errno with which the bus has gone.
    int until(const bool& done);

    // Calls, and reads the first argument of the answer; of an error, none, and its name.
    BusValue ask(const BusCall& call, std::string* errorName = nullptr);

private:
    Clock::time_point m_until;
    BusConnection m_bus;
};

} // namespace network

#endif
