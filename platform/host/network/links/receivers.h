// The receivers of the process: who has called NAPI_Init, and hears of its links.
#ifndef NETWORK_RECEIVERS_H
#define NETWORK_RECEIVERS_H

#include <cstddef>
#include <cstdint>
#include <list>
#include <vector>

#include <poll.h>

#include "base/unique_fd.h"
#include "napi.h"
#include "network/links/indication_channel.h"

namespace network {

class Receivers
{
public:
    // Takes the descriptor: a connected stream socket. May throw std::bad_alloc.
    void add(base::UniqueFd descriptor) { m_channels.emplace_back(std::move(descriptor)); }
    void clear() { m_channels.clear(); }
    std::size_t count() const { return m_channels.size(); }

    // Queues a message for everybody; its number. A receiver for whose message there is no memory,
    // or for whom NAPI_MAX_UNREAD bytes wait already, is let go: it sees the end of its stream, and
    // never a stream with a message missing.
    uint64_t tell(const NapiIndication& message);

    // Takes back those of these messages that have not begun to be written.
    void withdraw(const std::vector<uint64_t>& numbers);

    // Writes what the sockets take without waiting.
    void flush();

    // What to wait for, one descriptor each, and what came of it. Between the two calls receivers
    // may be added, but not removed.
    void addDescriptors(std::vector<pollfd>* all) const;
    void removeGone(const pollfd* begin, const pollfd* end);

private:
    std::list<IndicationChannel> m_channels;
    uint64_t m_lastMessage = 0;
};

} // namespace network

#endif
