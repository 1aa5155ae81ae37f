// Makes the name servers of a device the first ones of the machine's resolver, for as long as its
// connection is up.
#ifndef NETWORK_NETWORKMANAGER_NAME_SERVER_REQUEST_H
#define NETWORK_NETWORKMANAGER_NAME_SERVER_REQUEST_H

#include <string>

#include "network/links/networkmanager/bus/bus_connection.h"

namespace network {

class NameServerRequest
{
public:
    // Changes the priority in the connection as it is applied to the device; what is stored of it
    // stays as it is. Nothing tells whether the service has done it; version 1.42 sorts its servers
    // anew with their next change. Once is enough for a device.
    void start(BusConnection& bus, const std::string& device);

    void cancel();

private:
    void reapply(BusConnection& bus, const std::string& device, BusMessage& applied);

    bool m_asked = false;
    BusSlot m_question;
};

} // namespace network

#endif
