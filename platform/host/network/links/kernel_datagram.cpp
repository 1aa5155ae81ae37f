#include "network/links/kernel_datagram.h"

#include <algorithm>
#include <cerrno>

#include <linux/netlink.h>
#include <sys/socket.h>

#include "base/durable_file.h"

namespace network {

namespace {

// The kernel's own port is 0, and no process can have it.
bool isFromKernel(const sockaddr_nl& sender, socklen_t length)
{
    return length == sizeof sender && sender.nl_family == AF_NETLINK && sender.nl_pid == 0;
}

} // namespace

KernelDatagram receiveFromKernel(int socket, void* buffer, std::size_t size)
{
    sockaddr_nl sender = {};
    socklen_t length = sizeof sender;
    const ssize_t got = base::retried([&] {
        return ::recvfrom(socket, buffer, size, MSG_DONTWAIT | MSG_TRUNC,
                          reinterpret_cast<sockaddr*>(&sender), &length);
    });
    if (got < 0)
        return {errno == ENOBUFS ? KernelDatagram::Kind::Overrun : KernelDatagram::Kind::None, 0};
    if (!isFromKernel(sender, length))
        return {KernelDatagram::Kind::Foreign, 0};
    const auto whole = static_cast<std::size_t>(got);
    return {whole > size ? KernelDatagram::Kind::Cut : KernelDatagram::Kind::Whole,
            std::min(whole, size)};
}

} // namespace network
