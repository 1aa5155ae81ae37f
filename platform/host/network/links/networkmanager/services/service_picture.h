// What NetworkManager and ModemManager say about the machine, at one instant.
#ifndef NETWORK_NETWORKMANAGER_SERVICE_PICTURE_H
#define NETWORK_NETWORKMANAGER_SERVICE_PICTURE_H

#include <cstdint>
#include <string>
#include <vector>

#include "network/links/networkmanager/bus/bus_value.h"
#include "network/links/networkmanager/services/cause_tables.h"

namespace network {

// A device of NetworkManager. Paths are "" where there is none.
struct ServiceDevice
{
    std::string path;
    std::string interface;   // of a modem, its port
    std::string ipInterface; // once it is up
    uint32_t type = 0;       // nm::DeviceType
    uint32_t state = 0;      // nm::DeviceState
    uint32_t reason = 0;     // why it is in that state
    bool managed = false;
    std::string modem;      // path at ModemManager
    std::string active;     // path of its activation
    std::string ip4Config;  // path of its addresses
    std::string connection; // path of the connection that is activated
    bool known = false;     // a stored connection could be activated on it
};

// A modem of ModemManager.
struct ServiceModem
{
    std::string path;
    int64_t state = 0;         // MMModemState, negative when it has failed
    uint32_t failedReason = 0; // MMModemStateFailedReason
    uint32_t power = 0;        // mm::Power
    uint32_t lock = 0;         // mm::Lock and others
    uint32_t signal = 0;       // percent
    uint32_t technologies = 0; // bits of MMModemAccessTechnology
    uint32_t registration = 0; // MMModem3gppRegistrationState
    std::string operatorCode;  // "26201"
    std::string operatorName;
};

// Registered, and not in the network of its own operator.
bool isAbroad(const ServiceModem& modem);

struct ServicePicture
{
    Cause unreachable = {NAPI_CAUSE_NONE, 0}; // why NetworkManager has not answered
    bool modemService = false;                // ModemManager has answered
    bool networking = true;                   // false while the user has switched everything off
    bool wifi = true;                         // the radio
    bool wwan = true;                         // the radio
    std::vector<ServiceDevice> devices;
    std::vector<ServiceModem> modems;

    const ServiceModem* findModem(const std::string& path) const;
    const ServiceDevice* findDevice(const std::string& path) const;
};

// From the objects that a service manages. What is missing or of a wrong type has the value above.
void readNetworkManager(const BusValue& objects, ServicePicture* picture);
void readModemManager(const BusValue& objects, ServicePicture* picture);

// The properties of a device, all of them or those that have changed; what they do not tell, or
// with a wrong type, stays as it is.
void readDevice(const BusValue& told, ServiceDevice* device);

// An object path of the service as it is used here: "" for "/".
std::string objectPath(const BusValue& value);

} // namespace network

#endif
