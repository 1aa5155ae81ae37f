// Reading the name servers of a resolver's configuration.
#ifndef NETWORK_RESOLVER_READER_H
#define NETWORK_RESOLVER_READER_H

#include <string>
#include <string_view>
#include <vector>

namespace network {

// The addresses behind "nameserver" in the text of a resolv.conf, in its order, 16 at the most: of
// IPv4 or IPv6, the latter with a scope where it has one ("fe80::1%wlan0"). Everything else in the
// text, which may be any, is passed over.
std::vector<std::string> readNameServers(std::string_view text);

} // namespace network

#endif
