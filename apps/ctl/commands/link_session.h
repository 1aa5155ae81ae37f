// One link of one run of vornctl: opened, watched, and closed whatever happens.
#ifndef CTL_LINK_SESSION_H
#define CTL_LINK_SESSION_H

#include <csignal>
#include <cstddef>
#include <optional>
#include <string>

#include "base/unique_fd.h"
#include "commands/link_steps.h"
#include "napi.h"

namespace ctl {

class LinkSession
{
public:
    // What wait() has seen.
    enum class Event { Indication, Step, Signal, Timeout, Ended };

    // Starts the network API. From here on SIGINT, SIGTERM and SIGHUP arrive as Event::Signal,
    // those that the process ignores excepted. Throws Failure.
    LinkSession();

    // Closes the link that is still open, and ends the network API.
    ~LinkSession();
    LinkSession(const LinkSession&) = delete;
    LinkSession& operator=(const LinkSession&) = delete;

    // From here on each step of the opening is an Event::Step, where the bearer tells any. Throws
    // Failure.
    void watchSteps() { m_steps.watch(); }

    // Begins to open the link; its id. Throws Failure.
    int open(const std::string& name);

    // Closes the link, once. True when there was one.
    bool close();

    // The id is free already: the link must not be closed any more.
    void forget() { m_link.reset(); }

    // Waits at most `seconds` (without an end when negative) for one event.
    Event wait(double seconds);

    const NapiIndication& indication() const { return m_indication; }
    const std::string& step() const { return m_step; }
    int signal() const { return m_signal; }

private:
    bool takeIndication();

    base::UniqueFd m_signals;
    base::UniqueFd m_socket;
    LinkSteps m_steps;
    std::string m_step;
    std::optional<int> m_link;
    NapiIndication m_indication = {};
    std::size_t m_received = 0; // bytes of the indication that is arriving
    bool m_ended = false;
    int m_signal = 0;
};

} // namespace ctl

#endif
