#include "network/links/networkmanager/services/device_watches.h"

#include <iterator>
#include <utility>

namespace network {

DeviceWatches::DeviceWatches(std::function<void(const std::string& path)> changed)
    : m_changed(std::move(changed))
{}

DeviceWatch& DeviceWatches::watch(BusConnection& bus, const ServiceDevice& device)
{
    auto& watch = m_all[device.path];
    if (!watch)
        watch = std::make_unique<DeviceWatch>(bus, device,
                                              [this, path = device.path] { m_changed(path); });
    m_last = device.path;
    return *watch;
}

ServicePicture DeviceWatches::freeDevices() const
{
    ServicePicture picture;
    for (const auto& [path, watch] : m_all) {
        if (watch->isFree())
            picture.devices.push_back(watch->device());
    }
    return picture;
}

void DeviceWatches::keepOnly(const std::function<bool(const std::string& path)>& wanted)
{
    for (auto entry = m_all.begin(); entry != m_all.end();)
        entry =
            entry->first == m_last || wanted(entry->first) ? std::next(entry) : m_all.erase(entry);
}

} // namespace network
