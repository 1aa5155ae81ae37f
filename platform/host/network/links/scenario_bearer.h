// Links whose fate the configuration tells: for demonstrations and tests.
#ifndef NETWORK_SCENARIO_BEARER_H
#define NETWORK_SCENARIO_BEARER_H

#include <map>
#include <optional>

#include "network/links/bearer.h"

namespace network {

class ScenarioBearer : public Bearer
{
public:
    explicit ScenarioBearer(BearerListener& listener) : m_listener(listener) {}

    void open(const Opening& opening) override;
    void close(int link) override;
    bool playBreak(int link) override;
    // The next opening fails at once, whatever its scenario says.
    void playFailure(NapiCause cause, int detail);
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
    std::optional<Scenario> m_failure; // of the next opening
    std::map<int, Entry> m_entries;    // by link id
};

} // namespace network

#endif
