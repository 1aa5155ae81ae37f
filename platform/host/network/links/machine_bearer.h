// Links over the interfaces that this machine has anyway.
#ifndef NETWORK_MACHINE_BEARER_H
#define NETWORK_MACHINE_BEARER_H

#include <map>

#include "network/links/bearer.h"
#include "network/links/machine_interfaces.h"
#include "network/links/netlink_watch.h"

namespace network {

class MachineBearer : public Bearer
{
public:
    explicit MachineBearer(BearerListener& listener) : m_listener(listener) {}

    int start() override;
    void stop() override;
    void open(const Opening& opening) override;
    void close(int link) override;
    BearerDescriptors descriptors() const override;
    void descriptorReady() override;
    Clock::time_point nextDeadline() const override;
    void deadlinePassed(Clock::time_point now) override;

private:
    void checkLinks();

    BearerListener& m_listener;
    NetlinkWatch m_watch;
    Clock::time_point m_checkAt = never;
    std::map<int, Device> m_up; // by link id
};

} // namespace network

#endif
