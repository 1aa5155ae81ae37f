// The name resolver's configuration, etc/resolv.conf below the root.
#ifndef NETWORK_RESOLVER_CONFIG_H
#define NETWORK_RESOLVER_CONFIG_H

#include <string>
#include <vector>

#include "network/links/bearer.h"

namespace network {

// The name servers of a link: those of its profile, for the kind of connection that it is; else
// those that the network gave; else those that this machine uses itself, from /etc/resolv.conf. In
// text form, in the order in which they are asked.
std::vector<std::string> nameServers(const NetworkProfile& record, const Device& device);

// Replaces the file, whole or not at all, and makes the folder where it is missing. Result: as
// NAPI_DnsResolverConfig.
int writeResolverConfig(const std::vector<std::string>& nameServers);

} // namespace network

#endif
