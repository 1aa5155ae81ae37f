// The links of the process: their ids, their states, and the bearers that carry them.
#ifndef NETWORK_LINK_TABLE_H
#define NETWORK_LINK_TABLE_H

#include <array>
#include <cstdint>
#include <deque>
#include <memory>
#include <vector>

#include <poll.h>

#include "network/links/bearer.h"
#include "network/links/idle_timer.h"
#include "network/links/machine_bearer.h"
#include "network/links/networkmanager/network_manager_bearer.h"
#include "network/links/receivers.h"
#include "network/links/scenario_bearer.h"

namespace network {

// What is known of a link that is up.
struct LinkFacts
{
    Device device;
    std::string profile;
    NetworkProfile record = {};
};

// All calls are made one at a time, and none of them blocks. Results are those of napi.h.
class LinkTable final : private BearerListener
{
public:
    explicit LinkTable(Receivers& receivers) : m_receivers(receivers) {}

    // Bearers watch the links that are up between these two; links stay as they are.
    int startBearers();
    void stopBearers();

    // From any thread. An opening waits for the next work(), and its id is set here.
    int open(Opening opening);
    int close(int link);
    int facts(int link, LinkFacts* facts);
    int preferNameServers(int link);
    int playBreak(int link);
    void playFailure(NapiCause cause, int detail) { m_scenario.playFailure(cause, detail); }

    // Gives up what has not come up yet, without a message.
    void giveUpOpenings();

    // Closes every link, without a message and without a thread that could help.
    void abandon();

    // For the thread: what is due, until when it may sleep, and what it waits for. None of them
    // throws.
    static constexpr std::size_t bearers = 3;
    static constexpr std::size_t descriptors = bearers * std::tuple_size<BearerDescriptors>::value;
    void work();
    Clock::time_point nextDeadline() const;
    void addDescriptors(std::vector<pollfd>* all) const;
    void react(const pollfd* entries);

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

    Bearer& bearerFor(const NetworkConfig& config);
    Link* find(int link);
    void release(int link);
    int freeId() const;
    void openRequested();
    void handOver(int link);
    void startIdleTimer(Link& link);
    bool trafficDue(Clock::time_point now) const;
    void sampleTraffic(Clock::time_point now);
    void sampleLink(int link, const Interfaces& interfaces, Clock::time_point now);
    void linkUp(int link, Device device) override;
    void linkFailed(int link, NapiCause cause, int detail) override;
    void linkBroken(int link) override;
    void tell(const NapiIndication& message, Link& about);

    Receivers& m_receivers;
    std::array<std::unique_ptr<Link>, NAPI_MAX_LINKS> m_links;
    std::deque<int> m_requests; // link ids; one that was closed meanwhile is passed over
    MachineBearer m_machine{*this};
    ScenarioBearer m_scenario{*this};
    NetworkManagerBearer m_networkManager{*this};
    const std::array<Bearer*, bearers> m_bearers{&m_machine, &m_scenario, &m_networkManager};
};

} // namespace network

#endif
