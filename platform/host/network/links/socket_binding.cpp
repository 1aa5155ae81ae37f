#include "network/links/socket_binding.h"

#include <cerrno>

#include <sys/socket.h>

#include "napi.h"

namespace network {

namespace {

int resultOf(int error)
{
    switch (error) {
    case EBADF:
    case ENOTSOCK:
    case ENOPROTOOPT:
    case EOPNOTSUPP:
        return NAPI_ERR_SOCKET;
    case EPERM:
    case EACCES:
        return NAPI_ERR_NOT_PERMITTED;
    case ENODEV: // the device went away, and the engine has not heard of it yet
        return NAPI_ERR_LINK_NOT_UP;
    default:
        return NAPI_ERR_IO;
    }
}

} // namespace

int bindToDevice(int socket, const std::string& device)
{
    int family = AF_UNSPEC;
    socklen_t size = sizeof family;
    if (::getsockopt(socket, SOL_SOCKET, SO_DOMAIN, &family, &size) != 0)
        return resultOf(errno);
    // The kernel takes the option for local sockets as well, where it means nothing.
    if (family != AF_INET && family != AF_INET6)
        return NAPI_ERR_SOCKET;
    auto length = static_cast<socklen_t>(device.size() + 1);
    if (::setsockopt(socket, SOL_SOCKET, SO_BINDTODEVICE, device.c_str(), length) != 0)
        return resultOf(errno);
    return NAPI_OK;
}

} // namespace network
