#include "network/links/receivers.h"

#include <iterator>
#include <new>

namespace network {

uint64_t Receivers::tell(const NapiIndication& message)
{
    ++m_lastMessage;
    for (auto channel = m_channels.begin(); channel != m_channels.end();) {
        bool isKept = channel->waitingBytes() + sizeof message <= NAPI_MAX_UNREAD;
        try {
            if (isKept)
                channel->enqueue(m_lastMessage, message);
        } catch (const std::bad_alloc&) {
            isKept = false;
        }
        channel = isKept ? std::next(channel) : m_channels.erase(channel);
    }
    return m_lastMessage;
}

void Receivers::withdraw(const std::vector<uint64_t>& numbers)
{
    for (IndicationChannel& channel : m_channels) {
        for (uint64_t number : numbers)
            channel.withdraw(number);
    }
}

void Receivers::flush()
{
    for (auto channel = m_channels.begin(); channel != m_channels.end();) {
        bool there = !channel->waiting() || channel->flush();
        channel = there ? std::next(channel) : m_channels.erase(channel);
    }
}

// A receiver is waited on for room only while something is queued for it; that it has gone is
// reported in any case.
void Receivers::addDescriptors(std::vector<pollfd>* all) const
{
    for (const IndicationChannel& channel : m_channels) {
        short events = channel.waiting() ? POLLOUT : 0;
        all->push_back({channel.descriptor(), events, 0});
    }
}

// New ones are added at the end, so those that were polled are the first ones still.
void Receivers::removeGone(const pollfd* begin, const pollfd* end)
{
    auto channel = m_channels.begin();
    for (const pollfd* entry = begin; entry != end; ++entry) {
        bool gone = (entry->revents & (POLLHUP | POLLERR | POLLNVAL)) != 0;
        channel = gone ? m_channels.erase(channel) : std::next(channel);
    }
}

} // namespace network
