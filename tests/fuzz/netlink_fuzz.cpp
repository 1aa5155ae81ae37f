// Any datagrams from the kernel's routing socket: the default route is read from them, or none is
// found, and the watch for changes comes to an end. An input is a row of datagrams, each with its
// length in two bytes before it; the highest bit of the length makes the sender another process.
#include <algorithm>
#include <cerrno>
#include <cstring>

#include <linux/netlink.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <unistd.h>

#include "fuzz/target.h"
#include "network/links/machine_interfaces.h"
#include "network/links/netlink_watch.h"

namespace {

const uint8_t* next = nullptr;
const uint8_t* end = nullptr;
int kernel = -1;

bool isKernel(int descriptor)
{
    return descriptor >= 0 && descriptor == kernel;
}

// The next datagram, cut to the room that there is for it.
ssize_t take(void* room, std::size_t size, sockaddr_nl* sender, int flags, int* outFlags)
{
    if (end - next < 2) {
        errno = EAGAIN;
        return flags & MSG_DONTWAIT ? -1 : 0;
    }
    const unsigned head = next[0] | unsigned{next[1]} << 8;
    const std::size_t length = std::min<std::size_t>(head & 0x7FFF, end - next - 2);
    const std::size_t taken = std::min(length, size);
    std::memcpy(room, next + 2, taken);
    if (sender) {
        *sender = {};
        sender->nl_family = AF_NETLINK;
        sender->nl_pid = head >> 15;
    }
    if (outFlags)
        *outFlags = taken < length ? MSG_TRUNC : 0;
    if (!(flags & MSG_PEEK))
        next += 2 + length;
    return static_cast<ssize_t>(flags & MSG_TRUNC ? length : taken);
}

} // namespace

extern "C" int socket(int domain, int type, int protocol) noexcept
{
    if (domain != AF_NETLINK)
        return static_cast<int>(::syscall(SYS_socket, domain, type, protocol));
    kernel = static_cast<int>(::syscall(SYS_socket, AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0));
    return kernel;
}

extern "C" int bind(int descriptor, const sockaddr* address, socklen_t size) noexcept
{
    return isKernel(descriptor) ? 0
                                : static_cast<int>(::syscall(SYS_bind, descriptor, address, size));
}

extern "C" ssize_t send(int descriptor, const void* data, std::size_t size, int flags)
{
    if (isKernel(descriptor))
        return static_cast<ssize_t>(size);
    return ::syscall(SYS_sendto, descriptor, data, size, flags, nullptr, 0);
}

extern "C" ssize_t recv(int descriptor, void* room, std::size_t size, int flags)
{
    if (isKernel(descriptor))
        return take(room, size, nullptr, flags, nullptr);
    return ::syscall(SYS_recvfrom, descriptor, room, size, flags, nullptr, nullptr);
}

extern "C" ssize_t recvfrom(int descriptor, void* room, std::size_t size, int flags,
                            sockaddr* sender, socklen_t* senderSize)
{
    if (!isKernel(descriptor))
        return ::syscall(SYS_recvfrom, descriptor, room, size, flags, sender, senderSize);
    sockaddr_nl from = {};
    const ssize_t result = take(room, size, &from, flags, nullptr);
    if (sender && senderSize) {
        std::memcpy(sender, &from, std::min<std::size_t>(*senderSize, sizeof from));
        *senderSize = sizeof from;
    }
    return result;
}

extern "C" ssize_t recvmsg(int descriptor, msghdr* message, int flags)
{
    if (!isKernel(descriptor))
        return ::syscall(SYS_recvmsg, descriptor, message, flags);
    sockaddr_nl from = {};
    iovec& room = message->msg_iov[0];
    const ssize_t result = take(room.iov_base, room.iov_len, &from, flags, &message->msg_flags);
    if (message->msg_name) {
        std::memcpy(message->msg_name, &from,
                    std::min<std::size_t>(message->msg_namelen, sizeof from));
        message->msg_namelen = sizeof from;
    }
    message->msg_controllen = 0;
    return result;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size)
{
    next = data;
    end = data + size;
    network::defaultRouteInterface();
    kernel = -1;

    next = data;
    network::NetlinkWatch watch;
    watch.open();
    watch.drain();
    return 0;
}
