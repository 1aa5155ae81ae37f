#include "network/links/netlink_watch.h"

#include <cerrno>

#include <linux/netlink.h>
#include <linux/rtnetlink.h>
#include <sys/socket.h>
#include <unistd.h>

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

bool NetlinkWatch::drain()
{
    bool changed = false;
    // What the messages say does not matter, so a short buffer is enough: the kernel cuts them.
    for (char data[64];;) {
        if (::recv(m_descriptor, data, sizeof data, MSG_DONTWAIT) > 0 || errno == ENOBUFS)
            changed = true;
        else if (errno != EINTR)
            return changed;
    }
}

} // namespace network
