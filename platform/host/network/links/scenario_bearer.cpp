#include "network/links/scenario_bearer.h"

#include <algorithm>
#include <utility>

#include "network/links/machine_choice.h"

namespace network {

void ScenarioBearer::open(const Opening& opening)
{
    Clock::time_point now = Clock::now();
    Entry& entry = m_entries[opening.link];
    entry = {};
    entry.scenario = m_failure ? *m_failure : opening.config->scenarioFor(opening.profile);
    m_failure.reset();
    auto kinds = allowedKinds(opening.record);
    entry.kind = kinds.empty() ? NAPI_BEARER_UNKNOWN : kinds.front();
    if (entry.scenario.outcome == ScenarioOutcome::Never)
        return;
    entry.due = now + entry.scenario.after;
    if (entry.due <= now)
        happen(opening.link, now);
}

void ScenarioBearer::close(int link)
{
    m_entries.erase(link);
}

bool ScenarioBearer::playBreak(int link)
{
    const auto entry = m_entries.find(link);
    if (entry == m_entries.end() || !entry->second.up)
        return false;
    entry->second.due = Clock::now();
    return true;
}

void ScenarioBearer::playFailure(NapiCause cause, int detail)
{
    Scenario failure;
    failure.outcome = ScenarioOutcome::Fail;
    failure.cause = static_cast<uint16_t>(cause);
    failure.detail = static_cast<uint16_t>(detail);
    m_failure = failure;
}

namespace {

bool sooner(Clock::time_point a, Clock::time_point b)
{
    return a < b;
}

} // namespace

Clock::time_point ScenarioBearer::nextDeadline() const
{
    Clock::time_point next = never;
    for (const auto& [link, entry] : m_entries)
        next = std::min(next, entry.due, sooner);
    return next;
}

// The link whose turn it is: the one that has been due the longest, or -1.
int ScenarioBearer::nextDue(Clock::time_point now) const
{
    int next = -1;
    Clock::time_point earliest = never;
    for (const auto& [link, entry] : m_entries) {
        if (entry.due <= now && entry.due < earliest) {
            earliest = entry.due;
            next = link;
        }
    }
    return next;
}

void ScenarioBearer::deadlinePassed(Clock::time_point now)
{
    for (int link = nextDue(now); link >= 0; link = nextDue(now))
        happen(link, now);
}

// Nothing is copied: this may happen at a deadline, where no lack of memory could be told.
void ScenarioBearer::connect(int link, Entry& entry, Clock::time_point now)
{
    entry.up = true;
    entry.due = entry.scenario.breakAfter ? now + *entry.scenario.breakAfter : never;
    Device device;
    device.name = std::move(entry.scenario.device);
    device.address = entry.scenario.address;
    device.kind = entry.kind;
    device.nameServers = std::move(entry.scenario.nameServers);
    m_listener.linkUp(link, std::move(device));
}

void ScenarioBearer::happen(int link, Clock::time_point now)
{
    Entry& entry = m_entries[link];
    if (entry.up) {
        m_entries.erase(link);
        m_listener.linkBroken(link);
    } else if (entry.scenario.outcome == ScenarioOutcome::Connect) {
        connect(link, entry, now);
    } else {
        auto cause = static_cast<NapiCause>(entry.scenario.cause);
        int detail = entry.scenario.detail;
        m_entries.erase(link);
        m_listener.linkFailed(link, cause, detail);
    }
}

} // namespace network
