// Receiving what the kernel says on a netlink socket.
#ifndef NETWORK_KERNEL_DATAGRAM_H
#define NETWORK_KERNEL_DATAGRAM_H

#include <cstddef>

namespace network {

struct KernelDatagram
{
    enum class Kind {
        Whole,   // `size` bytes are in the buffer
        Cut,     // it is longer than the buffer, which is full
        Foreign, // not the kernel but some process has sent it
        Overrun, // the socket could not hold everything, and something is lost
        None     // there is nothing, or the socket is broken
    };

    Kind kind = Kind::None;
    std::size_t size = 0;
};

// Takes one datagram off the socket, without waiting.
KernelDatagram receiveFromKernel(int socket, void* buffer, std::size_t size);

} // namespace network

#endif
