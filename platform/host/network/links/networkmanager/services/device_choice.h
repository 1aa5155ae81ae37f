// Which device of the machine carries a link, and how it is brought up.
#ifndef NETWORK_NETWORKMANAGER_DEVICE_CHOICE_H
#define NETWORK_NETWORKMANAGER_DEVICE_CHOICE_H

#include "network/links/bearer.h"
#include "network/links/networkmanager/services/cause_tables.h"
#include "network/links/networkmanager/services/service_picture.h"

namespace network {

struct DeviceChoice
{
    enum class Way {
        None,  // no device; the cause says why
        Dial,  // with a connection made from the profile
        Known, // with the best connection that the service has stored
        Join   // it is up already, or is coming up
    };

    Way way = Way::None;
    Cause cause = {NAPI_CAUSE_NO_BEARER, 0};
    ServiceDevice device;
};

// For one kind of connection, GPRS or WiFi. Devices of that kind serve, those that the
// configuration names in any case; a free one before one that is up.
DeviceChoice chooseDevice(NapiBearerKind kind, const NetworkConfig& config,
                          const ServicePicture& picture);

// The same for one device, whatever the others do.
DeviceChoice judgeDevice(NapiBearerKind kind, const ServiceDevice& device,
                         const ServicePicture& picture);

} // namespace network

#endif
