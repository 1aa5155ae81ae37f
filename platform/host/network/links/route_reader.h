// Reading the kernel's list of routes, as it comes in datagrams.
#ifndef NETWORK_ROUTE_READER_H
#define NETWORK_ROUTE_READER_H

#include <climits>
#include <cstddef>
#include <cstdint>

namespace network {

// A default route of IPv4 in the main table; an interface of 0 is none.
struct DefaultRoute
{
    unsigned interface = 0; // its index
    unsigned metric = UINT_MAX;
};

// Takes the bytes of one datagram that answers the request of this number, and keeps in `best` the
// default route with the lowest metric. The bytes may be any: nothing is read beyond them, and
// messages that are no routes, are too short for what they say to be, or answer somebody else are
// passed over. False when the answer ends here, with its last message or with bytes that are no
// messages.
bool readRoutes(const char* data, std::size_t size, uint32_t request, DefaultRoute* best);

} // namespace network

#endif
