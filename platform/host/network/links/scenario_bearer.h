// Links whose fate the configuration tells: for demonstrations and tests.
#ifndef NETWORK_SCENARIO_BEARER_H
#define NETWORK_SCENARIO_BEARER_H

#include <map>

#include "network/links/bearer.h"

namespace network {

class ScenarioBearer : public Bearer
{
public:
    explicit ScenarioBearer(BearerListener& listener) : m_listener(listener) {}

    void open(const Opening& opening) override;
    void close(int link) override;
    Clock::time_point nextDeadline() const override;
    void deadlinePassed(Clock::time_point now) override;

private:
    struct Entry
    {
        Scenario scenario;
        NapiBearerKind kind = NAPI_BEARER_UNKNOWN;
        bool up = false;
        Clock::time_point due = never;
    };

    int nextDue(Clock::time_point now) const;
    void happen(int link, Clock::time_point now);
    void connect(int link, Entry& entry, Clock::time_point now);

    BearerListener& m_listener;
    std::map<int, Entry> m_entries; // by link id
};

} // namespace network

#endif
