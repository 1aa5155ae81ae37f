// One link of one run of vornctl: opened, watched, and closed whatever happens.
#ifndef CTL_LINK_SESSION_H
#define CTL_LINK_SESSION_H

#include <csignal>
#include <cstddef>
#include <optional>
#include <string>

#include "base/unique_fd.h"
#include "napi.h"

namespace ctl {

class LinkSession
{
public:
    // What wait() has seen.
    enum class Event { Indication, Signal, Timeout, Ended };

    // Starts the network API. From here on SIGINT, SIGTERM and SIGHUP arrive as Event::Signal,
    // those that the process ignores excepted. Throws Failure.
    LinkSession();

    // Closes the link that is still open, and ends the network API.
    ~LinkSession();
    LinkSession(const LinkSession&) = delete;
    LinkSession& operator=(const LinkSession&) = delete;

    // Begins to open the link; its id. Throws Failure.
    int open(const std::string& name);

    // Closes the link, once. True when there was one.
    bool close();

    // The id is free already: the link must not be closed any more.
    void forget() { m_link.reset(); }

    // Waits at most `seconds` (without an end when negative) for one event.
    Event wait(double seconds);

    const NapiIndication& indication() const { return m_indication; }
    int signal() const { return m_signal; }

private:
    bool takeIndication();

    base::UniqueFd m_signals;
    base::UniqueFd m_socket;
    std::optional<int> m_link;
    NapiIndication m_indication = {};
    std::size_t m_received = 0; // bytes of the indication that is arriving
    bool m_ended = false;
    int m_signal = 0;
};

} // namespace ctl

#endif
