// Asks both services what they say about the machine, at the same time.
#ifndef NETWORK_NETWORKMANAGER_SERVICE_LISTING_H
#define NETWORK_NETWORKMANAGER_SERVICE_LISTING_H

#include <functional>
#include <utility>

#include "network/links/networkmanager/bus/bus_connection.h"
#include "network/links/networkmanager/services/service_picture.h"

namespace network {

class ServiceListing
{
public:
    using Done = std::function<void(const ServicePicture&)>;

    // The answer comes to `done`, once; ModemManager is asked where modems matter. A later start
    // takes back an earlier one. Result: 0 or an errno, and nothing comes.
    int start(BusConnection& bus, bool modems, Done done);

    // What was told last, or is known anyway; clear() releases its memory.
    const ServicePicture& picture() const { return m_picture; }
    void take(ServicePicture known) { m_picture = std::move(known); }
    void clear();

private:
    int ask(BusConnection& bus, const char* service, const char* root, BusHandler handler,
            BusSlot* slot);
    void readDevices(BusMessage& reply);
    void readModems(BusMessage& reply);
    void answered();

    Done m_done;
    ServicePicture m_picture;
    int m_pending = 0;
    BusSlot m_devices;
    BusSlot m_modems;
};

} // namespace network

#endif
