#include "network/links/link_engine.h"

#include <algorithm>
#include <cerrno>
#include <new>
#include <utility>

#include <sys/eventfd.h>

namespace network {

void* LinkEngine::threadMain(void* engine)
{
    static_cast<LinkEngine*>(engine)->run();
    return nullptr;
}

static timespec timeLeft(Clock::time_point deadline)
{
    auto left = std::max(deadline - Clock::now(), Clock::duration::zero());
    auto seconds = std::chrono::duration_cast<std::chrono::seconds>(left);
    return {seconds.count(), std::chrono::nanoseconds(left - seconds).count()};
}

// The thread sleeps until a descriptor or a deadline wants something; without links there is no
// deadline, and an idle process stays asleep.
void LinkEngine::run()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    while (!m_stopping) {
        work();
        collectDescriptors();
        Clock::time_point deadline = nextDeadline();
        lock.unlock();
        timespec timeout = deadline == kNever ? timespec{} : timeLeft(deadline);
        int ready = ::ppoll(m_descriptors.data(), m_descriptors.size(),
                            deadline == kNever ? nullptr : &timeout, nullptr);
        lock.lock();
        if (ready > 0)
            react();
    }
}

void LinkEngine::work()
{
    openRequested();
    Clock::time_point now = Clock::now();
    for (Bearer* bearer : m_bearers) {
        if (bearer->nextDeadline() <= now)
            bearer->deadlinePassed(now);
    }
    sampleTraffic(now);
    flushChannels();
}

Clock::time_point LinkEngine::nextDeadline() const
{
    Clock::time_point next = kNever;
    for (const Bearer* bearer : m_bearers)
        next = std::min(next, bearer->nextDeadline());
    for (const auto& link : m_links) {
        if (link)
            next = std::min(next, link->idle.nextSample());
    }
    return next;
}

// A receiver is waited on for room only while something is queued for it; that it has gone is
// reported in any case. There is room for all of them already.
void LinkEngine::collectDescriptors()
{
    if (m_room.capacity() > m_descriptors.capacity())
        m_descriptors.swap(m_room);
    m_descriptors.clear();
    m_descriptors.push_back({m_wake.get(), POLLIN, 0});
    for (const Bearer* bearer : m_bearers)
        m_descriptors.push_back({bearer->descriptor(), POLLIN, 0});
    for (const IndicationChannel& channel : m_channels) {
        short events = channel.waiting() ? POLLOUT : 0;
        m_descriptors.push_back({channel.descriptor(), events, 0});
    }
}

// Channels are removed by this thread alone and added at the end, so those that were polled are the
// first ones still. They come before the bearers, whose news may let one go when memory is short.
void LinkEngine::react()
{
    auto entry = m_descriptors.begin();
    eventfd_t count;
    if (entry++->revents != 0)
        ::eventfd_read(m_wake.get(), &count);
    auto ofBearer = entry;
    std::advance(entry, m_bearers.size());
    for (auto channel = m_channels.begin(); entry != m_descriptors.end(); ++entry) {
        bool gone = (entry->revents & (POLLHUP | POLLERR | POLLNVAL)) != 0;
        channel = gone ? m_channels.erase(channel) : std::next(channel);
    }
    for (Bearer* bearer : m_bearers) {
        if (ofBearer++->revents != 0)
            bearer->descriptorReady();
    }
}

void LinkEngine::openRequested()
{
    while (!m_requests.empty()) {
        int id = m_requests.front();
        m_requests.pop_front();
        Link* link = find(id);
        if (link && link->state == State::Requested)
            handOver(id);
    }
}

void LinkEngine::handOver(int id)
{
    Link* link = find(id);
    link->state = State::Opening;
    try {
        link->bearer->open(link->opening);
    } catch (const std::bad_alloc&) {
        link->bearer->close(id);
        linkFailed(id, NAPI_CAUSE_UNKNOWN, ENOMEM);
    }
}

static Clock::duration idlePeriod(const Opening& opening, NapiBearerKind kind)
{
    if (kind == NAPI_BEARER_GPRS)
        return opening.record.gprsTimeout * opening.config->minute;
    if (kind == NAPI_BEARER_CSD)
        return opening.record.csdTimeout * opening.config->minute;
    return Clock::duration::zero(); // a WiFi link costs nothing while it is idle
}

// Where the kernel does not answer the count begins at 0: the first sample then sees traffic, and
// the link ends a quarter of the period later.
void LinkEngine::startIdleTimer(Link& link)
{
    Clock::duration period = idlePeriod(link.opening, link.device.kind);
    if (period <= Clock::duration::zero())
        return;
    Interfaces interfaces;
    interfaces.read();
    link.idle.start(period, interfaces.packets(link.device.name), Clock::now());
}

bool LinkEngine::trafficDue(Clock::time_point now) const
{
    return std::any_of(m_links.begin(), m_links.end(),
                       [now](const auto& link) { return link && link->idle.nextSample() <= now; });
}

void LinkEngine::sampleTraffic(Clock::time_point now)
{
    if (!trafficDue(now))
        return;
    Interfaces interfaces;
    bool known = interfaces.read() == 0;
    for (int id = 0; id < NAPI_MAX_LINKS; ++id) {
        Link* link = find(id);
        if (!link || link->idle.nextSample() > now)
            continue;
        if (!known) {
            link->idle.postpone(now);
            continue;
        }
        if (!link->idle.sample(interfaces.packets(link->device.name), now))
            continue;
        link->bearer->close(id);
        linkBroken(id);
    }
}

void LinkEngine::flushChannels()
{
    for (auto channel = m_channels.begin(); channel != m_channels.end();) {
        bool there = !channel->waiting() || channel->flush();
        channel = there ? std::next(channel) : m_channels.erase(channel);
    }
}

static NapiIndication indication(NapiIndicationType type, int link)
{
    NapiIndication message = {};
    message.type = type;
    message.linkId = static_cast<uint8_t>(link);
    return message;
}

static NapiIndication indication(NapiIndicationType type, int link, const Device& device)
{
    NapiIndication message = indication(type, link);
    message.infoByte = static_cast<uint8_t>(device.kind);
    device.name.copy(message.infoText, sizeof message.infoText - 1);
    message.infoWord = device.address;
    return message;
}

void LinkEngine::linkUp(int id, Device device)
{
    Link* link = find(id);
    link->state = State::Up;
    link->device = std::move(device);
    startIdleTimer(*link);
    tell(indication(NAPI_IND_CONNECTED, id, link->device), link);
}

void LinkEngine::linkFailed(int id, NapiCause cause, int detail)
{
    m_links[static_cast<size_t>(id)].reset();
    NapiIndication message = indication(NAPI_IND_OPEN_FAILED, id);
    message.cause1 = static_cast<uint16_t>(cause);
    message.cause2 = static_cast<uint16_t>(detail);
    tell(message, nullptr);
}

void LinkEngine::linkBroken(int id)
{
    Link* link = find(id);
    link->state = State::Broken;
    link->idle.stop();
    tell(indication(NAPI_IND_BROKEN, id, link->device), link);
}

// A receiver for whose message there is no memory is let go: it sees the end of its stream, and
// never a stream with a message missing.
void LinkEngine::tell(NapiIndication message, Link* about)
{
    ++m_lastMessage;
    if (about)
        about->messages.push_back(m_lastMessage);
    for (auto channel = m_channels.begin(); channel != m_channels.end();) {
        try {
            channel->enqueue(m_lastMessage, message);
            ++channel;
        } catch (const std::bad_alloc&) {
            channel = m_channels.erase(channel);
        }
    }
}

} // namespace network
