#include "network/links/networkmanager/bus/bus_wait.h"

#include <algorithm>
#include <cerrno>

#include <poll.h>

namespace network {

int BusWait::until(const bool& done)
{
    for (;;) {
        int error = m_bus.process();
        if (done || error != 0)
            return error;
        Clock::time_point now = Clock::now();
        Clock::time_point next = std::min(m_until, m_bus.nextDeadline());
        if (m_until <= now)
            return ETIMEDOUT;
        auto left = std::chrono::ceil<std::chrono::milliseconds>(next - now).count();
        pollfd entry = {m_bus.descriptor(), m_bus.events(), 0};
        ::poll(&entry, 1, static_cast<int>(std::max<long long>(left, 0)));
    }
}

BusValue BusWait::ask(const BusCall& call, std::string* errorName)
{
    BusValue answer;
    bool done = false;
    auto handler = [&](BusMessage& reply) {
        done = true;
        if (errorName)
            *errorName = reply.errorName();
        if (!reply.isError())
            answer = reply.next();
    };
    BusSlot slot;
    if (m_bus.send(call, handler, &slot) == 0)
        until(done);
    return answer;
}

} // namespace network
