#include "network/links/machine_interfaces.h"

#include <linux/netlink.h>
#include <linux/rtnetlink.h>
#include <net/if.h>
#include <sys/socket.h>

#include "base/unique_fd.h"
#include "network/links/kernel_datagram.h"
#include "network/links/route_reader.h"

namespace network {

constexpr uint32_t requestNumber = 1;

namespace {

bool askForRoutes(int socket)
{
    struct
    {
        nlmsghdr header;
        rtmsg route;
    } request = {};
    request.header.nlmsg_len = sizeof request;
    request.header.nlmsg_type = RTM_GETROUTE;
    request.header.nlmsg_flags = NLM_F_REQUEST | NLM_F_DUMP;
    request.header.nlmsg_seq = requestNumber;
    request.route.rtm_family = AF_INET;
    return ::send(socket, &request, sizeof request, 0) == static_cast<ssize_t>(sizeof request);
}

// The kernel puts the next part of its answer into the socket when the one before is taken, so
// there is nothing to wait for. What is not the kernel's says nothing; a datagram that was cut ends
// the reading, for its messages can no longer be told apart.
DefaultRoute readAnswer(int socket)
{
    DefaultRoute best;
    char data[32768];
    for (;;) {
        const KernelDatagram datagram = receiveFromKernel(socket, data, sizeof data);
        if (datagram.kind == KernelDatagram::Kind::Foreign)
            continue;
        if (datagram.kind != KernelDatagram::Kind::Whole ||
            !readRoutes(data, datagram.size, requestNumber, &best))
            return best;
    }
}

} // namespace

std::string defaultRouteInterface()
{
    base::UniqueFd socket(::socket(AF_NETLINK, SOCK_RAW | SOCK_CLOEXEC, NETLINK_ROUTE));
    if (!socket.isOpen() || !askForRoutes(socket.get()))
        return {};
    const DefaultRoute best = readAnswer(socket.get());
    char name[IF_NAMESIZE] = "";
    return best.interface != 0 && ::if_indextoname(best.interface, name) ? name : "";
}

} // namespace network
