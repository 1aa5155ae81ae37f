// The way of the indications to one receiver: a socket, and the messages that still wait for room.
#ifndef NETWORK_INDICATION_CHANNEL_H
#define NETWORK_INDICATION_CHANNEL_H

#include <cstddef>
#include <cstdint>
#include <map>
#include <utility>

#include "base/unique_fd.h"
#include "napi.h"

namespace network {

class IndicationChannel
{
public:
    // Takes the descriptor: a connected stream socket.
    explicit IndicationChannel(base::UniqueFd descriptor) : m_descriptor(std::move(descriptor)) {}

    // Puts a message at the end of the queue. Numbers rise from message to message.
    void enqueue(uint64_t number, const NapiIndication& message);

    // Takes back a message that has not begun to be written; one that has begun is written to its
    // end, because the receiver relies on whole messages.
    void withdraw(uint64_t number);

    // Writes what the socket takes without waiting. False when the receiver has gone.
    bool flush();

    bool waiting() const { return !m_queue.empty(); }
    std::size_t waitingBytes() const { return m_queue.size() * sizeof(NapiIndication); }
    int descriptor() const { return m_descriptor.get(); }

private:
    void drop(std::size_t bytes);

    base::UniqueFd m_descriptor;
    std::map<uint64_t, NapiIndication> m_queue;
    std::size_t m_begun = 0; // bytes of the first message that are written already
};

} // namespace network

#endif
