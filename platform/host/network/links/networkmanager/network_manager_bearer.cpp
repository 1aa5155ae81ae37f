#include "network/links/networkmanager/network_manager_bearer.h"

#include <algorithm>
#include <cerrno>
#include <new>

#include "network/links/networkmanager/rights.h"
#include "network/links/networkmanager/services/service_names.h"
#include "network/links/networkmanager/step_report.h"

namespace network {

// A service that has come back finds its devices one after the other.
constexpr auto searchPause = std::chrono::seconds(1);
constexpr int searches = 10;

// How long the end of the network API may wait for a service that takes a connection down.
constexpr auto farewell = std::chrono::milliseconds(500);

// A program that has closed its last link often opens the next one soon.
constexpr auto stay = std::chrono::seconds(30);

NetworkManagerBearer::NetworkManagerBearer(BearerListener& listener)
    : m_listener(listener),
      m_signals([this](const std::string& path, BusMessage& signal) { signalled(path, signal); }),
      m_watches([this](const std::string& path) { deviceTold(path); })
{}

void NetworkManagerBearer::prepare()
{
    sdBus();
    connectionOwner();
}

int NetworkManagerBearer::start()
{
    m_interfaces.resume();
    if (m_bus.isOpen())
        m_lookAt = Clock::now();
    return 0;
}

// A link that is up stays, and the bus with it: the service takes down what belongs to a program
// that has left the bus.
void NetworkManagerBearer::stop()
{
    awaitAnswers();
    m_interfaces.pause();
    sweep();
    m_lingering.clear();
    if (m_links.empty())
        disconnect();
}

// The service asks the bus who has called it, and refuses a caller who has left meanwhile.
void NetworkManagerBearer::awaitAnswers()
{
    Clock::time_point end = Clock::now() + farewell;
    while (m_bus.isOpen() && m_bus.process() == 0 && isAsking() && Clock::now() < end) {
        constexpr int pauseMs = 10;
        pollfd entry = {m_bus.descriptor(), m_bus.events(), 0};
        ::poll(&entry, 1, pauseMs);
    }
}

bool NetworkManagerBearer::isAsking() const
{
    return m_owned.isAsking() || std::any_of(m_lingering.begin(), m_lingering.end(),
                                             [](const auto& link) { return link->isAsking(); });
}

void NetworkManagerBearer::disconnect()
{
    m_owned.clear();
    m_taken.clear();
    m_signals.clear();
    m_watches.clear();
    m_ownerWatch = BusSlot();
    m_leaveAt = never;
    m_bus.close();
}

int NetworkManagerBearer::connect()
{
    if (m_bus.isOpen())
        return 0;
    if (int error = m_bus.open())
        return error;
    m_searches = searches; // for links that are up since another connection
    m_findAgainAt = m_links.empty() ? never : Clock::now();
    std::string rule = std::string("type='signal',sender='org.freedesktop.DBus',"
                                   "path='/org/freedesktop/DBus',member='NameOwnerChanged',"
                                   "arg0='") +
                       nm::service + "'";
    auto handler = [this](BusMessage& signal) { ownerChanged(signal); };
    return m_bus.listen(rule, handler, &m_ownerWatch);
}

// What the services have said already is heard before a device is chosen.
void NetworkManagerBearer::open(const Opening& opening)
{
    if (m_bus.isOpen())
        work();
    if (int error = connect())
        return m_listener.linkFailed(opening.link, NAPI_CAUSE_NO_SERVICE_DAEMON,
                                     NAPI_DETAIL_ERRNO + error);
    auto& link = m_links[opening.link];
    ActivationHost& host = *this;
    link = std::make_unique<LinkActivation>(host, opening, connectionOwner());
    link->begin();
    sweep();
}

void NetworkManagerBearer::close(int link)
{
    m_interfaces.remove(link);
    auto found = m_links.find(link);
    if (found == m_links.end())
        return;
    found->second->close();
    m_lingering.push_back(std::move(found->second));
    m_links.erase(found);
    sweep();
}

void NetworkManagerBearer::preferNameServers(int link)
{
    auto found = m_links.find(link);
    if (found != m_links.end())
        found->second->preferNameServers();
}

// All of it belongs to the parent, and a message to the bus would be sent in its name.
void NetworkManagerBearer::forget()
{
    m_bus.forget();
    m_links.clear();
    m_lingering.clear();
    disconnect();
}

BearerDescriptors NetworkManagerBearer::descriptors() const
{
    return {{{m_bus.descriptor(), m_bus.events(), 0}, {m_interfaces.descriptor(), POLLIN, 0}}};
}

void NetworkManagerBearer::descriptorReady()
{
    work();
}

Clock::time_point NetworkManagerBearer::nextDeadline() const
{
    Clock::time_point next =
        std::min({m_bus.nextDeadline(), m_owned.nextDeadline(), m_interfaces.nextDeadline(),
                  m_findAgainAt, m_lookAt, m_leaveAt});
    for (const auto& [id, link] : m_links)
        next = std::min(next, link->deadline());
    for (const auto& link : m_lingering)
        next = std::min(next, link->deadline());
    return next;
}

void NetworkManagerBearer::deadlinePassed(Clock::time_point)
{
    work();
}

// Links come and go only between two rounds of this, so none ends under its own hands.
template <typename Call> void NetworkManagerBearer::forEach(Call call)
{
    for (auto& [id, link] : m_links)
        call(*link);
    for (auto& link : m_lingering)
        call(*link);
}

void NetworkManagerBearer::work()
{
    m_lookAt = never;
    int error = m_bus.process();
    Clock::time_point now = Clock::now();
    try {
        checkInterfaces(now);
        forEach([now](LinkActivation& link) {
            if (link.deadline() <= now)
                link.deadlinePassed();
        });
        m_deviceFreed = m_owned.deadlinePassed(now) || m_deviceFreed;
        if (m_findAgainAt <= now)
            findLinksAgain(now);
        if (m_leaveAt <= now && isIdle())
            disconnect();
        goOn();
    } catch (const std::bad_alloc&) {
        error = ENOMEM;
    }
    if (error != 0)
        busGone();
    sweep();
}

void NetworkManagerBearer::checkInterfaces(Clock::time_point now)
{
    for (int lost : m_interfaces.lost(now)) {
        auto found = m_links.find(lost);
        if (found != m_links.end() && found->second->isUp())
            found->second->interfaceGone();
    }
}

void NetworkManagerBearer::signalled(const std::string& path, BusMessage& signal)
{
    uint32_t values[3] = {};
    for (uint32_t& value : values)
        value = static_cast<uint32_t>(signal.next().toNumber());
    forEach([&](LinkActivation& link) {
        link.deviceChanged(path, values[0], values[1], values[2]);
        link.activeChanged(path, values[0]);
    });
    m_deviceFreed = m_owned.activeChanged(path, values[0]) || m_deviceFreed;
}

void NetworkManagerBearer::ownerChanged(BusMessage& signal)
{
    signal.next();
    bool before = !signal.next().toText().empty();
    bool after = !signal.next().toText().empty();
    if (before)
        serviceGone();
    if (!after)
        return;
    m_searches = searches;
    m_findAgainAt = Clock::now();
}

// Paths of a service that has gone mean nothing any more.
void NetworkManagerBearer::serviceGone()
{
    forEach([](LinkActivation& link) { link.serviceGone(); });
    m_owned.clear();
    m_taken.clear();
    m_watches.clear();
    m_deviceFreed = true;
}

void NetworkManagerBearer::busGone()
{
    serviceGone();
    disconnect();
}

void NetworkManagerBearer::findLinksAgain(Clock::time_point now)
{
    bool lost = false;
    forEach([&lost](LinkActivation& link) {
        if (link.isLost())
            link.findAgain();
        lost = lost || link.isLost();
    });
    bool again = lost && --m_searches > 0;
    m_findAgainAt = again ? now + searchPause : never;
}

bool NetworkManagerBearer::isTaken(const std::string& device) const
{
    return m_taken.count(device) != 0 || m_owned.isGoingDown(device);
}

void NetworkManagerBearer::take(const std::string& device)
{
    m_taken.insert(device);
}

void NetworkManagerBearer::giveBack(const std::string& device)
{
    m_taken.erase(device);
    m_deviceFreed = true;
}

void NetworkManagerBearer::own(const OwnActivation& activation)
{
    m_owned.own(activation);
}

const OwnActivation* NetworkManagerBearer::ownOn(const std::string& device) const
{
    return m_owned.findOn(device);
}

bool NetworkManagerBearer::join(const std::string& active)
{
    return m_owned.join(active);
}

void NetworkManagerBearer::leave(const std::string& active)
{
    listen(active, nm::active);
    m_owned.leave(m_bus, active);
}

DeviceWatch& NetworkManagerBearer::watch(const ServiceDevice& device)
{
    return m_watches.watch(m_bus, device);
}

void NetworkManagerBearer::deviceTold(const std::string& path)
{
    forEach([&path](LinkActivation& link) {
        if (link.devicePath() == path)
            link.deviceTold();
    });
}

void NetworkManagerBearer::listen(const std::string& path, const char* interface)
{
    if (m_bus.isOpen())
        m_signals.listen(m_bus, path, interface);
}

void NetworkManagerBearer::opened(int link, const Device& device)
{
    m_listener.linkUp(link, device);
    m_interfaces.add(link, device);
}

void NetworkManagerBearer::failed(int link, const Cause& cause)
{
    if (cause.cause == NAPI_CAUSE_NOT_PERMITTED) {
        step(link, "not permitted; this permits it: " + grantingLine());
        tellMissingRight();
    }
    m_listener.linkFailed(link, cause.cause, cause.detail);
}

void NetworkManagerBearer::broken(int link)
{
    m_interfaces.remove(link);
    m_listener.linkBroken(link);
}

void NetworkManagerBearer::step(int link, const std::string& text)
{
    reportStep(link, text);
}

void NetworkManagerBearer::goOn()
{
    if (!m_deviceFreed)
        return;
    m_deviceFreed = false;
    forEach([](LinkActivation& link) { link.deviceIsFree(); });
}

bool NetworkManagerBearer::isNamed(const std::string& path) const
{
    if (m_owned.knows(path))
        return true;
    auto names = [&path](const LinkActivation& link) {
        return link.devicePath() == path || link.activePath() == path;
    };
    return std::any_of(m_links.begin(), m_links.end(),
                       [&](const auto& entry) { return names(*entry.second); }) ||
           std::any_of(m_lingering.begin(), m_lingering.end(),
                       [&](const auto& link) { return names(*link); });
}

bool NetworkManagerBearer::isIdle() const
{
    return m_links.empty() && m_lingering.empty() && m_owned.empty();
}

// Removes what has ended; the bus goes some time after nothing needs it any more. What is still
// waited for gives its id back.
void NetworkManagerBearer::sweep()
{
    for (auto entry = m_links.begin(); entry != m_links.end();) {
        bool over =
            entry->second->isClosed() || entry->second->step() == LinkActivation::Step::Done;
        if (entry->second->isClosed())
            m_lingering.push_back(std::move(entry->second));
        entry = over ? m_links.erase(entry) : std::next(entry);
    }
    m_lingering.erase(
        std::remove_if(m_lingering.begin(), m_lingering.end(),
                       [](const auto& link) { return link->step() == LinkActivation::Step::Done; }),
        m_lingering.end());
    m_signals.keepOnly([this](const std::string& path) { return isNamed(path); });
    m_watches.keepOnly([this](const std::string& path) { return isNamed(path); });
    if (!m_bus.isOpen() || !isIdle())
        m_leaveAt = never;
    else if (m_leaveAt == never)
        m_leaveAt = Clock::now() + stay;
}

} // namespace network
