#include "network/links/link_table.h"

#include <algorithm>
#include <cerrno>
#include <new>
#include <utility>

namespace network {

int LinkTable::startBearers()
{
    for (Bearer* bearer : m_bearers) {
        if (bearer->start() != 0)
            return NAPI_ERR_RESOURCES;
    }
    return NAPI_OK;
}

void LinkTable::stopBearers()
{
    for (Bearer* bearer : m_bearers)
        bearer->stop();
}

Bearer& LinkTable::bearerFor(const NetworkConfig& config)
{
    switch (config.bearer) {
    case BearerChoice::Scenario:
        return m_scenario;
    case BearerChoice::NetworkManager:
        return m_networkManager;
    case BearerChoice::Machine:
        break;
    }
    return m_machine;
}

LinkTable::Link* LinkTable::find(int link)
{
    bool known = link >= 0 && link < NAPI_MAX_LINKS;
    return known ? m_links[static_cast<std::size_t>(link)].get() : nullptr;
}

void LinkTable::release(int link)
{
    m_links[static_cast<std::size_t>(link)].reset();
}

int LinkTable::freeId() const
{
    for (std::size_t id = 0; id < m_links.size(); ++id) {
        if (!m_links[id])
            return static_cast<int>(id);
    }
    return NAPI_ERR_TOO_MANY_LINKS;
}

int LinkTable::open(Opening opening)
{
    int id = freeId();
    if (id < 0)
        return id;
    auto link = std::make_unique<Link>();
    link->messages.reserve(2); // one when it is up, one when it breaks
    link->bearer = &bearerFor(*opening.config);
    link->opening = std::move(opening);
    link->opening.link = id;
    m_requests.push_back(id);
    m_links[static_cast<std::size_t>(id)] = std::move(link);
    return id;
}

int LinkTable::close(int id)
{
    Link* link = find(id);
    if (!link)
        return NAPI_ERR_NO_LINK;
    if (link->state == State::Opening || link->state == State::Up)
        link->bearer->close(id);
    m_receivers.withdraw(link->messages);
    release(id);
    return NAPI_OK;
}

int LinkTable::facts(int id, LinkFacts* facts)
{
    Link* link = find(id);
    if (!link)
        return NAPI_ERR_NO_LINK;
    if (link->state != State::Up)
        return NAPI_ERR_LINK_NOT_UP;
    *facts = {link->device, link->opening.profile, link->opening.record};
    return NAPI_OK;
}

int LinkTable::preferNameServers(int id)
{
    Link* link = find(id);
    if (!link)
        return NAPI_ERR_NO_LINK;
    if (link->state != State::Up)
        return NAPI_ERR_LINK_NOT_UP;
    link->bearer->preferNameServers(id);
    return NAPI_OK;
}

int LinkTable::playBreak(int id)
{
    Link* link = find(id);
    if (!link)
        return NAPI_ERR_NO_LINK;
    if (link->state != State::Up)
        return NAPI_ERR_LINK_NOT_UP;
    return link->bearer->playBreak(id) ? NAPI_OK : NAPI_ERR_ARGUMENT;
}

void LinkTable::giveUpOpenings()
{
    m_requests.clear();
    for (int id = 0; id < NAPI_MAX_LINKS; ++id) {
        Link* link = find(id);
        if (!link || link->state == State::Up || link->state == State::Broken)
            continue;
        if (link->state == State::Opening)
            link->bearer->close(id);
        release(id);
    }
}

void LinkTable::abandon()
{
    m_requests.clear();
    for (Bearer* bearer : m_bearers)
        bearer->forget();
    for (int id = 0; id < NAPI_MAX_LINKS; ++id) {
        if (Link* link = find(id))
            link->bearer->close(id);
        release(id);
    }
}

void LinkTable::work()
{
    openRequested();
    Clock::time_point now = Clock::now();
    for (Bearer* bearer : m_bearers) {
        if (bearer->nextDeadline() <= now)
            bearer->deadlinePassed(now);
    }
    sampleTraffic(now);
}

Clock::time_point LinkTable::nextDeadline() const
{
    Clock::time_point next = never;
    for (const Bearer* bearer : m_bearers)
        next = std::min(next, bearer->nextDeadline());
    for (const auto& link : m_links) {
        if (link)
            next = std::min(next, link->idle.nextSample());
    }
    return next;
}

void LinkTable::addDescriptors(std::vector<pollfd>* all) const
{
    for (const Bearer* bearer : m_bearers) {
        for (const pollfd& entry : bearer->descriptors())
            all->push_back(entry);
    }
}

void LinkTable::react(const pollfd* entries)
{
    constexpr std::size_t each = std::tuple_size<BearerDescriptors>::value;
    for (Bearer* bearer : m_bearers) {
        bool ready = std::any_of(entries, entries + each,
                                 [](const pollfd& entry) { return entry.revents != 0; });
        entries += each;
        if (ready)
            bearer->descriptorReady();
    }
}

void LinkTable::openRequested()
{
    while (!m_requests.empty()) {
        int id = m_requests.front();
        m_requests.pop_front();
        Link* link = find(id);
        if (link && link->state == State::Requested)
            handOver(id);
    }
}

void LinkTable::handOver(int id)
{
    Link* link = find(id);
    link->state = State::Opening;
    try {
        link->bearer->open(link->opening);
    } catch (const std::bad_alloc&) {
        link->bearer->close(id);
        linkFailed(id, NAPI_CAUSE_UNKNOWN, NAPI_DETAIL_ERRNO + ENOMEM);
    }
}

namespace {

Clock::duration idlePeriod(const Opening& opening, NapiBearerKind kind)
{
    if (kind == NAPI_BEARER_GPRS)
        return opening.record.gprsTimeout * opening.config->minute;
    if (kind == NAPI_BEARER_CSD)
        return opening.record.csdTimeout * opening.config->minute;
    return Clock::duration::zero(); // a WiFi link costs nothing while it is idle
}

} // namespace

// Where the kernel does not answer the count begins at 0: the first sample then sees traffic, and
// the link ends a quarter of the period later.
void LinkTable::startIdleTimer(Link& link)
{
    Clock::duration period = idlePeriod(link.opening, link.device.kind);
    if (period <= Clock::duration::zero())
        return;
    Interfaces interfaces;
    interfaces.read();
    link.idle.start(period, interfaces.packets(link.device.name), Clock::now());
}

bool LinkTable::trafficDue(Clock::time_point now) const
{
    return std::any_of(m_links.begin(), m_links.end(),
                       [now](const auto& link) { return link && link->idle.nextSample() <= now; });
}

void LinkTable::sampleTraffic(Clock::time_point now)
{
    if (!trafficDue(now))
        return;
    Interfaces interfaces;
    bool known = interfaces.read() == 0;
    for (int id = 0; id < NAPI_MAX_LINKS; ++id) {
        Link* link = find(id);
        if (!link || link->idle.nextSample() > now)
            continue;
        if (known)
            sampleLink(id, interfaces, now);
        else
            link->idle.postpone(now);
    }
}

void LinkTable::sampleLink(int id, const Interfaces& interfaces, Clock::time_point now)
{
    Link* link = find(id);
    if (!link->idle.sample(interfaces.packets(link->device.name), now))
        return;
    link->bearer->close(id);
    linkBroken(id);
}

namespace {

NapiIndication indication(NapiIndicationType type, int link)
{
    NapiIndication message = {};
    message.type = type;
    message.linkId = static_cast<uint8_t>(link);
    return message;
}

NapiIndication indication(NapiIndicationType type, int link, const Device& device)
{
    NapiIndication message = indication(type, link);
    message.infoByte = static_cast<uint8_t>(device.kind);
    device.name.copy(message.infoText, sizeof message.infoText - 1);
    message.infoWord = device.address;
    return message;
}

} // namespace

void LinkTable::linkUp(int id, Device device)
{
    Link* link = find(id);
    link->state = State::Up;
    forgetPasswords(&link->opening.record);
    link->device = std::move(device);
    startIdleTimer(*link);
    tell(indication(NAPI_IND_CONNECTED, id, link->device), *link);
}

void LinkTable::linkFailed(int id, NapiCause cause, int detail)
{
    release(id);
    NapiIndication message = indication(NAPI_IND_OPEN_FAILED, id);
    message.cause1 = static_cast<uint16_t>(cause);
    message.cause2 = static_cast<uint16_t>(detail);
    m_receivers.tell(message);
}

void LinkTable::linkBroken(int id)
{
    Link* link = find(id);
    link->state = State::Broken;
    link->idle.stop();
    tell(indication(NAPI_IND_BROKEN, id, link->device), *link);
}

void LinkTable::tell(const NapiIndication& message, Link& about)
{
    about.messages.push_back(m_receivers.tell(message));
}

} // namespace network
