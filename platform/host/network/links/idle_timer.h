// Notices that a link has carried no traffic for a while.
#ifndef NETWORK_IDLE_TIMER_H
#define NETWORK_IDLE_TIMER_H

#include <chrono>
#include <cstdint>

#include "network/links/bearer.h"

namespace network {

// The device's packet counter is sampled four times in each period. The period counts from the last
// sample that saw the counter changed, so a link ends not sooner than one period and not later than
// one and a quarter periods after its last packet; a link that never carried any ends after exactly
// one.
class IdleTimer
{
public:
    // A period of zero or less never ends.
    void start(Clock::duration period, uint64_t packets, Clock::time_point now);
    void stop() { m_nextSample = never; }

    Clock::time_point nextSample() const { return m_nextSample; }

    // The counter could not be read: tries again after a quarter of the period.
    void postpone(Clock::time_point now) { m_nextSample = now + m_period / 4; }

    // Tells the timer what the counter says now. True when the period has passed without traffic.
    bool sample(uint64_t packets, Clock::time_point now);

private:
    Clock::duration m_period{0};
    uint64_t m_packets = 0;
    Clock::time_point m_quietSince;
    Clock::time_point m_nextSample = never;
};

} // namespace network

#endif
