#include "commands/link_session.h"

#include <cerrno>
#include <cmath>

#include <poll.h>
#include <sys/signalfd.h>
#include <sys/socket.h>
#include <time.h>

#include "base/durable_file.h"
#include "failure.h"
#include "profile/store.h"

namespace ctl {

namespace {

// The signals that end a link. One that is ignored from the start (nohup) stays ignored.
sigset_t endingSignals()
{
    sigset_t set;
    sigemptyset(&set);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        struct sigaction action = {};
        ::sigaction(signal, nullptr, &action);
        if (action.sa_handler != SIG_IGN)
            sigaddset(&set, signal);
    }
    return set;
}

timespec timeOf(double seconds)
{
    timespec time = {};
    time.tv_sec = static_cast<time_t>(seconds);
    time.tv_nsec = static_cast<long>((seconds - std::floor(seconds)) * 1e9);
    return time;
}

} // namespace

LinkSession::LinkSession()
{
    // Before the network API starts its thread, which is thereby never interrupted.
    const sigset_t signals = endingSignals();
    ::sigprocmask(SIG_BLOCK, &signals, nullptr);
    m_signals.reset(::signalfd(-1, &signals, SFD_CLOEXEC | SFD_NONBLOCK));
    const int socket = m_signals.isOpen() ? NAPI_Init(0) : int(NAPI_ERR_RESOURCES);
    if (socket < 0)
        failNapi(socket, "start the network API", nullptr);
    m_socket.reset(socket);
}

LinkSession::~LinkSession()
{
    close();
    NAPI_Fini();
}

int LinkSession::open(const std::string& name)
{
    const int link = NAPI_OpenLink(name.c_str());
    if (link < 0)
        failNapi(link, "open a link for the profile", &name);
    m_link = link;
    return link;
}

bool LinkSession::close()
{
    if (!m_link)
        return false;
    NAPI_CloseLink(*m_link);
    m_link.reset();
    return true;
}

bool LinkSession::takeIndication()
{
    char* at = reinterpret_cast<char*>(&m_indication) + m_received;
    const ssize_t count = base::retried(
        [&] { return ::recv(m_socket.get(), at, sizeof m_indication - m_received, MSG_DONTWAIT); });
    if (count == 0 || (count < 0 && errno != EAGAIN && errno != EWOULDBLOCK))
        m_ended = true;
    if (count > 0)
        m_received += static_cast<std::size_t>(count);
    if (m_received < sizeof m_indication)
        return false;
    m_received = 0;
    return true;
}

LinkSession::Event LinkSession::wait(double seconds)
{
    const timespec limit = timeOf(seconds < 0 ? 0 : seconds);
    while (!m_ended) {
        pollfd events[] = {{m_signals.get(), POLLIN, 0},
                           {m_socket.get(), POLLIN, 0},
                           {m_steps.descriptor(), POLLIN, 0}};
        const int ready = ::ppoll(events, 3, seconds < 0 ? nullptr : &limit, nullptr);
        if (ready == 0)
            return Event::Timeout;
        signalfd_siginfo info;
        if (events[0].revents && ::read(m_signals.get(), &info, sizeof info) == sizeof info) {
            m_signal = static_cast<int>(info.ssi_signo);
            return Event::Signal;
        }
        // Steps are told before the outcome, so they are taken first, whichever was seen first.
        if (m_steps.take(&m_step))
            return Event::Step;
        if (events[1].revents && takeIndication())
            return Event::Indication;
    }
    return Event::Ended;
}

} // namespace ctl
