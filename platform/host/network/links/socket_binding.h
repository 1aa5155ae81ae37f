// Ties an application's socket to a network device.
#ifndef NETWORK_SOCKET_BINDING_H
#define NETWORK_SOCKET_BINDING_H

#include <string>

namespace network {

// Result: as NAPI_BindSocket2Link.
int bindToDevice(int socket, const std::string& device);

} // namespace network

#endif
