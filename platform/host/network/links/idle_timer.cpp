#include "network/links/idle_timer.h"

#include <algorithm>

namespace network {

void IdleTimer::start(Clock::duration period, uint64_t packets, Clock::time_point now)
{
    m_period = period;
    m_packets = packets;
    m_quietSince = now;
    m_nextSample = period > Clock::duration::zero() ? now + period / 4 : never;
}

bool IdleTimer::sample(uint64_t packets, Clock::time_point now)
{
    if (packets != m_packets) {
        m_packets = packets;
        m_quietSince = now;
    } else if (now - m_quietSince >= m_period) {
        stop();
        return true;
    }
    // A sample that came late must not add another one after the end of the period.
    m_nextSample = std::min(now + m_period / 4, m_quietSince + m_period);
    return false;
}

} // namespace network
