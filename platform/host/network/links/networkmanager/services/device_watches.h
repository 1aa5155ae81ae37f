// The devices that are watched, each once.
#ifndef NETWORK_NETWORKMANAGER_DEVICE_WATCHES_H
#define NETWORK_NETWORKMANAGER_DEVICE_WATCHES_H

#include <map>
#include <memory>
#include <string>

#include "network/links/networkmanager/services/device_watch.h"

namespace network {

class DeviceWatches
{
public:
    // `changed` hears of the path of a device of which something has changed; see DeviceWatch.
    explicit DeviceWatches(std::function<void(const std::string& path)> changed);

    // The watch of a device, which begins here if there is none.
    DeviceWatch& watch(BusConnection& bus, const ServiceDevice& device);

    // The devices that are known to be free.
    ServicePicture freeDevices() const;

    // Ends the watches of devices that are not wanted, but for the last one that was; not from
    // within `changed`.
    void keepOnly(const std::function<bool(const std::string& path)>& wanted);
    void clear() { m_all.clear(); }

private:
    const std::function<void(const std::string& path)> m_changed;
    std::map<std::string, std::unique_ptr<DeviceWatch>> m_all; // by path
    std::string m_last;
};

} // namespace network

#endif
