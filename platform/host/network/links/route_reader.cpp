#include "network/links/route_reader.h"

#include <algorithm>
#include <cstring>

#include <linux/netlink.h>
#include <linux/rtnetlink.h>
#include <sys/socket.h>

namespace network {

namespace {

// Bytes of which only as many are read as there are.
struct Bytes
{
    const char* at;
    std::size_t left;

    template <typename Value> bool read(Value* value) const
    {
        if (left < sizeof *value)
            return false;
        std::memcpy(value, at, sizeof *value);
        return true;
    }
    Bytes first(std::size_t count) const { return {at, std::min(count, left)}; }
    Bytes without(std::size_t count) const
    {
        count = std::min(count, left);
        return {at + count, left - count};
    }
};

bool isDefaultRoute(const rtmsg& route)
{
    return route.rtm_family == AF_INET && route.rtm_dst_len == 0 &&
           route.rtm_table == RT_TABLE_MAIN && route.rtm_type == RTN_UNICAST;
}

// A route may share its traffic among several interfaces; the first one in use carries a link.
unsigned firstHop(Bytes hops)
{
    rtnexthop hop;
    while (hops.read(&hop) && hop.rtnh_len >= sizeof hop && hop.rtnh_len <= hops.left) {
        bool down = (hop.rtnh_flags & (RTNH_F_DEAD | RTNH_F_LINKDOWN)) != 0;
        if (!down && hop.rtnh_ifindex > 0)
            return static_cast<unsigned>(hop.rtnh_ifindex);
        hops = hops.without(RTNH_ALIGN(hop.rtnh_len));
    }
    return 0;
}

DefaultRoute readAttributes(Bytes bytes)
{
    DefaultRoute route;
    route.metric = 0; // a route without the attribute has the best metric
    rtattr attribute;
    while (bytes.read(&attribute) && attribute.rta_len >= sizeof attribute &&
           attribute.rta_len <= bytes.left) {
        const Bytes value = bytes.first(attribute.rta_len).without(sizeof attribute);
        if (attribute.rta_type == RTA_OIF)
            value.read(&route.interface);
        else if (attribute.rta_type == RTA_PRIORITY)
            value.read(&route.metric);
        else if (attribute.rta_type == RTA_MULTIPATH)
            route.interface = firstHop(value);
        bytes = bytes.without(RTA_ALIGN(attribute.rta_len));
    }
    return route;
}

void readRoute(Bytes bytes, DefaultRoute* best)
{
    rtmsg message;
    if (!bytes.read(&message) || !isDefaultRoute(message))
        return;
    const DefaultRoute route = readAttributes(bytes.without(NLMSG_ALIGN(sizeof message)));
    if (route.interface != 0 && (best->interface == 0 || route.metric < best->metric))
        *best = route;
}

} // namespace

bool readRoutes(const char* data, std::size_t size, uint32_t request, DefaultRoute* best)
{
    nlmsghdr header;
    for (Bytes bytes{data, size}; bytes.left > 0;
         bytes = bytes.without(NLMSG_ALIGN(header.nlmsg_len))) {
        if (!bytes.read(&header) || header.nlmsg_len < sizeof header ||
            header.nlmsg_len > bytes.left)
            return false;
        if (header.nlmsg_seq != request)
            continue;
        if (header.nlmsg_type == NLMSG_DONE || header.nlmsg_type == NLMSG_ERROR)
            return false;
        if (header.nlmsg_type == RTM_NEWROUTE)
            readRoute(bytes.first(header.nlmsg_len).without(NLMSG_HDRLEN), best);
    }
    return true;
}

} // namespace network
