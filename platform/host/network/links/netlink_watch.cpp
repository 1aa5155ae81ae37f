#include "network/links/netlink_watch.h"

#include <cerrno>

#include <linux/netlink.h>
#include <linux/rtnetlink.h>
#include <sys/socket.h>
#include <unistd.h>

#include "network/links/kernel_datagram.h"

namespace network {

int NetlinkWatch::open()
{
    m_descriptor = ::socket(AF_NETLINK, SOCK_RAW | SOCK_CLOEXEC | SOCK_NONBLOCK, NETLINK_ROUTE);
    if (m_descriptor < 0)
        return errno;
    sockaddr_nl groups = {};
    groups.nl_family = AF_NETLINK;
    groups.nl_groups = RTMGRP_LINK | RTMGRP_IPV4_IFADDR | RTMGRP_IPV4_ROUTE;
    if (::bind(m_descriptor, reinterpret_cast<const sockaddr*>(&groups), sizeof groups) == 0)
        return 0;
    int error = errno;
    close();
    return error;
}

void NetlinkWatch::close()
{
    if (m_descriptor >= 0)
        ::close(m_descriptor);
    m_descriptor = -1;
}

// What the messages say does not matter, so a short buffer is enough, and the kernel cuts them. A
// socket that fills as fast as it is emptied is left for the next time.
bool NetlinkWatch::drain()
{
    bool changed = false;
    char data[64];
    for (int count = 0; count < 256; ++count) {
        const KernelDatagram::Kind kind = receiveFromKernel(m_descriptor, data, sizeof data).kind;
        if (kind == KernelDatagram::Kind::None)
            break;
        changed = changed || kind != KernelDatagram::Kind::Foreign;
    }
    return changed;
}

} // namespace network
