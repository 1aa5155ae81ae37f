#include "network/links/machine_interfaces.h"

#include <climits>
#include <cstring>

#include <linux/netlink.h>
#include <linux/rtnetlink.h>
#include <net/if.h>
#include <sys/socket.h>
#include <unistd.h>

namespace network {

namespace {

struct Route
{
    unsigned interface = 0;
    unsigned metric = UINT_MAX;
};

struct RouteRequest
{
    nlmsghdr header;
    rtmsg route;
};

} // namespace

static bool askForRoutes(int socket)
{
    RouteRequest request = {};
    request.header.nlmsg_len = sizeof request;
    request.header.nlmsg_type = RTM_GETROUTE;
    request.header.nlmsg_flags = NLM_F_REQUEST | NLM_F_DUMP;
    request.route.rtm_family = AF_INET;
    return ::send(socket, &request, sizeof request, 0) == static_cast<ssize_t>(sizeof request);
}

static bool isDefaultRoute(const rtmsg& route)
{
    return route.rtm_family == AF_INET && route.rtm_dst_len == 0 &&
           route.rtm_table == RT_TABLE_MAIN && route.rtm_type == RTN_UNICAST;
}

// Takes the number of an attribute that is as long as one.
static void readNumber(rtattr* attribute, unsigned* number)
{
    if (RTA_PAYLOAD(attribute) == sizeof *number)
        std::memcpy(number, RTA_DATA(attribute), sizeof *number);
}

// What is left of a message may be less than the blanks that fill its last part up, so it is
// counted with a sign.
static Route readRoute(nlmsghdr* header)
{
    Route route;
    route.metric = 0; // a route without the attribute has the best metric
    auto message = static_cast<rtmsg*>(NLMSG_DATA(header));
    auto left = static_cast<int>(RTM_PAYLOAD(header));
    for (rtattr* attribute = RTM_RTA(message); RTA_OK(attribute, left);
         attribute = RTA_NEXT(attribute, left)) {
        if (attribute->rta_type == RTA_OIF)
            readNumber(attribute, &route.interface);
        else if (attribute->rta_type == RTA_PRIORITY)
            readNumber(attribute, &route.metric);
    }
    return route;
}

static bool tellsDefaultRoute(nlmsghdr* header)
{
    return header->nlmsg_type == RTM_NEWROUTE && header->nlmsg_len >= NLMSG_LENGTH(sizeof(rtmsg)) &&
           isDefaultRoute(*static_cast<rtmsg*>(NLMSG_DATA(header)));
}

// Goes through one datagram of the answer. False when it was the last.
static bool scan(char* data, int left, Route* best)
{
    for (auto header = reinterpret_cast<nlmsghdr*>(data); NLMSG_OK(header, left);
         header = NLMSG_NEXT(header, left)) {
        if (header->nlmsg_type == NLMSG_DONE || header->nlmsg_type == NLMSG_ERROR)
            return false;
        if (!tellsDefaultRoute(header))
            continue;
        Route route = readRoute(header);
        if (route.interface != 0 && (best->interface == 0 || route.metric < best->metric))
            *best = route;
    }
    return true;
}

std::string defaultRouteInterface()
{
    int socket = ::socket(AF_NETLINK, SOCK_RAW | SOCK_CLOEXEC, NETLINK_ROUTE);
    if (socket < 0)
        return {};
    Route best;
    bool more = askForRoutes(socket);
    while (more) {
        alignas(nlmsghdr) char data[32768];
        ssize_t size = ::recv(socket, data, sizeof data, 0);
        more = size > 0 && scan(data, static_cast<int>(size), &best);
    }
    ::close(socket);
    char name[IF_NAMESIZE] = "";
    return best.interface != 0 && ::if_indextoname(best.interface, name) ? name : "";
}

} // namespace network
