#include "network/links/indication_channel.h"

#include <cerrno>

#include <sys/socket.h>
#include <sys/uio.h>

namespace network {

// As many messages go with one system call, and as many calls with one flush, so that a receiver
// that reads as fast as it is written to does not keep the other receivers waiting.
constexpr std::size_t batchMessages = 64;
constexpr int batchesPerFlush = 16;

void IndicationChannel::enqueue(uint64_t number, const NapiIndication& message)
{
    m_queue.emplace_hint(m_queue.end(), number, message);
}

void IndicationChannel::withdraw(uint64_t number)
{
    auto found = m_queue.find(number);
    if (found == m_queue.end() || (found == m_queue.begin() && m_begun > 0))
        return;
    m_queue.erase(found);
}

void IndicationChannel::drop(std::size_t bytes)
{
    bytes += m_begun;
    for (; bytes >= sizeof(NapiIndication); bytes -= sizeof(NapiIndication))
        m_queue.erase(m_queue.begin());
    m_begun = bytes;
}

bool IndicationChannel::flush()
{
    for (int batch = 0; batch < batchesPerFlush && !m_queue.empty(); ++batch) {
        iovec parts[batchMessages];
        std::size_t count = 0;
        for (auto entry = m_queue.begin(); entry != m_queue.end() && count < batchMessages; ++entry)
            parts[count++] = {&entry->second, sizeof(NapiIndication)};
        parts[0].iov_base = reinterpret_cast<char*>(&m_queue.begin()->second) + m_begun;
        parts[0].iov_len -= m_begun;
        msghdr header = {};
        header.msg_iov = parts;
        header.msg_iovlen = count;
        ssize_t sent = ::sendmsg(descriptor(), &header, MSG_NOSIGNAL | MSG_DONTWAIT);
        if (sent < 0)
            return errno == EAGAIN || errno == EINTR || errno == ENOBUFS || errno == ENOMEM;
        drop(static_cast<std::size_t>(sent));
    }
    return true;
}

} // namespace network
