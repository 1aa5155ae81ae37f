// The engine behind the link calls of napi.h: the links of this process, the receivers that hear of
// them, and the thread that works for both.
#ifndef NETWORK_LINK_ENGINE_H
#define NETWORK_LINK_ENGINE_H

#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "network/links/link_table.h"
#include "network/links/poll_thread.h"
#include "network/links/receivers.h"

namespace network {

// The thread runs from the first start to the last stop. All state is behind one mutex, and
// messages are written with it held: when close has returned, the thread can no longer write what
// close has taken back. Nothing is waited for while the mutex is held. Results are those of napi.h.
class LinkEngine final : private PollClient
{
public:
    // The engine of the process. It is never destroyed: its thread may outlive main's statics.
    static LinkEngine& instance();

    int start(); // the receiver's end of a new indication channel, or an error
    int stop();

    bool running();
    int open(const std::string& profile, const NetworkProfile& record,
             std::shared_ptr<const NetworkConfig> config);
    int close(int link);
    int facts(int link, LinkFacts* facts);
    int preferNameServers(int link);
    int playBreak(int link);
    int playFailure(NapiCause cause, int detail);

private:
    LinkEngine() = default;
    ~LinkEngine() = default;

    void addReceiver(base::UniqueFd descriptor);
    int begin();
    void end();
    static void beforeFork();
    static void afterForkInParent();
    static void afterForkInChild();
    void abandon();

    // On the thread, with the mutex held.
    void work() override;
    Clock::time_point nextDeadline() const override { return m_links.nextDeadline(); }
    void addDescriptors(std::vector<pollfd>* all) const override;
    void react(const pollfd* begin, const pollfd* end) override;

    std::mutex m_lifecycle; // held over a whole start or stop, before m_mutex
    std::mutex m_mutex;
    int m_users = 0;
    Receivers m_receivers;
    LinkTable m_links{m_receivers};
    PollThread m_thread{m_mutex, *this};
};

} // namespace network

#endif
