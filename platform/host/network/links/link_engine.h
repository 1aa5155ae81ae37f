// The links of this process: their ids, their states, the thread that watches them, and the
// receivers that hear of them.
#ifndef NETWORK_LINK_ENGINE_H
#define NETWORK_LINK_ENGINE_H

#include <array>
#include <cstdint>
#include <deque>
#include <list>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include <poll.h>
#include <pthread.h>

#include "network/links/bearer.h"
#include "network/links/idle_timer.h"
#include "network/links/indication_channel.h"
#include "network/links/machine_bearer.h"
#include "network/links/scenario_bearer.h"

namespace network {

// The thread runs from the first start to the last stop. All state is behind one mutex, and
// messages are written with it held: when close has returned, the thread can no longer write what
// close has taken back. Nothing is waited for while the mutex is held. Results are those of napi.h.
class LinkEngine final : private BearerListener
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

    // What is known of a link that is up.
    struct LinkFacts
    {
        Device device;
        std::string profile;
        NetworkProfile record = {};
    };
    int facts(int link, LinkFacts* facts);

private:
    enum class State { Requested, Opening, Up, Broken };

    struct Link
    {
        State state = State::Requested;
        Opening opening;
        Bearer* bearer = nullptr;
        Device device;
        IdleTimer idle;
        std::vector<uint64_t> messages; // numbers of the messages that tell of it
    };

    LinkEngine() = default;
    ~LinkEngine() = default;

    // link_engine.cpp: the calls
    Link* find(int link);
    int freeId() const;
    void reserveDescriptors();
    int begin();
    void end();
    int startBearers();
    void giveUpOpenings();
    void wake();
    static void beforeFork();
    static void afterForkInParent();
    static void afterForkInChild();
    void abandon();

    // link_engine_thread.cpp: what the thread does, with the mutex held
    static void* threadMain(void* engine);
    void run();
    void work();
    void openRequested();
    void handOver(int link);
    bool trafficDue(Clock::time_point now) const;
    void sampleTraffic(Clock::time_point now);
    void startIdleTimer(Link& link);
    void flushChannels();
    Clock::time_point nextDeadline() const;
    void collectDescriptors();
    void react();
    void linkUp(int link, Device device) override;
    void linkFailed(int link, NapiCause cause, int detail) override;
    void linkBroken(int link) override;
    void tell(NapiIndication message, Link* about);

    std::mutex m_lifecycle; // held over a whole start or stop, before m_mutex
    std::mutex m_mutex;
    int m_users = 0;
    bool m_stopping = false;
    pthread_t m_thread = {};
    base::UniqueFd m_wake; // readable when the thread is to look around
    std::array<std::unique_ptr<Link>, NAPI_MAX_LINKS> m_links;
    std::deque<int> m_requests; // link ids; one that was closed meanwhile is passed over
    std::list<IndicationChannel> m_channels;
    uint64_t m_lastMessage = 0;
    std::vector<pollfd> m_descriptors; // what the thread waits for; the kernel's while it does
    std::vector<pollfd> m_room;        // takes their place once they are too many for it
    MachineBearer m_machine{*this};
    ScenarioBearer m_scenario{*this};
    const std::array<Bearer*, 2> m_bearers{&m_machine, &m_scenario};
};

} // namespace network

#endif
