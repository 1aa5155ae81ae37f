// Hears from the kernel that interfaces, IPv4 addresses or routes have changed.
#ifndef NETWORK_NETLINK_WATCH_H
#define NETWORK_NETLINK_WATCH_H

namespace network {

class NetlinkWatch
{
public:
    NetlinkWatch() = default;
    ~NetlinkWatch() { close(); }
    NetlinkWatch(const NetlinkWatch&) = delete;
    NetlinkWatch& operator=(const NetlinkWatch&) = delete;

    // Result: 0 or an errno. From here on no change is missed.
    int open();
    void close();

    // To wait on for reading; -1 while closed.
    int descriptor() const { return m_descriptor; }

    // Empties the socket. True when something may have changed, which a socket that has run over
    // says as well: what it lost is unknown.
    bool drain();

private:
    int m_descriptor = -1;
};

} // namespace network

#endif
