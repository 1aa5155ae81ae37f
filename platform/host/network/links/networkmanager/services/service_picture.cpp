#include "network/links/networkmanager/services/service_picture.h"

#include <algorithm>

#include "network/links/networkmanager/services/service_names.h"

namespace network {

namespace {

template <typename Entries>
const typename Entries::value_type* findPath(const Entries& entries, const std::string& path)
{
    auto found = std::find_if(entries.begin(), entries.end(),
                              [&](const auto& entry) { return entry.path == path; });
    return found == entries.end() ? nullptr : &*found;
}

} // namespace

bool isAbroad(const ServiceModem& modem)
{
    constexpr uint32_t roaming = 5;
    return modem.registration == roaming;
}

const ServiceModem* ServicePicture::findModem(const std::string& path) const
{
    return findPath(modems, path);
}

const ServiceDevice* ServicePicture::findDevice(const std::string& path) const
{
    return findPath(devices, path);
}

std::string objectPath(const BusValue& value)
{
    return value.toText() == noObject ? "" : value.toText();
}

namespace {

uint32_t number(const BusValue& properties, const char* key)
{
    return static_cast<uint32_t>(properties.at(key).toNumber());
}

void take(const BusValue& told, std::string* text)
{
    if (told.kind() == BusValue::Kind::Text)
        *text = told.toText();
}

void takePath(const BusValue& told, std::string* path)
{
    if (told.kind() == BusValue::Kind::Text)
        *path = objectPath(told);
}

void take(const BusValue& told, uint32_t* number)
{
    *number = static_cast<uint32_t>(told.toNumber(*number));
}

} // namespace

void readDevice(const BusValue& told, ServiceDevice* device)
{
    take(told.at("Interface"), &device->interface);
    take(told.at("IpInterface"), &device->ipInterface);
    take(told.at("DeviceType"), &device->type);
    take(told.at("State"), &device->state);
    take(told.at("StateReason").at(1), &device->reason);
    device->managed = told.at("Managed").toFlag(device->managed);
    takePath(told.at("Udi"), &device->modem);
    takePath(told.at("ActiveConnection"), &device->active);
    takePath(told.at("Ip4Config"), &device->ip4Config);
    const BusValue& available = told.at("AvailableConnections");
    if (available.kind() == BusValue::Kind::List)
        device->known = !available.elements().empty();
}

namespace {

ServiceDevice device(const std::string& path, const BusValue& told, const BusValue& objects)
{
    ServiceDevice read;
    read.path = path;
    readDevice(told, &read);
    const BusValue& active = objects.at(read.active.c_str()).at(nm::active);
    read.connection = objectPath(active.at("Connection"));
    return read;
}

} // namespace

void readNetworkManager(const BusValue& objects, ServicePicture* picture)
{
    const BusValue& manager = objects.at(nm::managerPath).at(nm::manager);
    picture->networking = manager.at("NetworkingEnabled").toFlag(true);
    picture->wifi = manager.at("WirelessEnabled").toFlag(true) &&
                    manager.at("WirelessHardwareEnabled").toFlag(true);
    picture->wwan =
        manager.at("WwanEnabled").toFlag(true) && manager.at("WwanHardwareEnabled").toFlag(true);
    for (std::size_t i = 0; i < objects.keys().size(); ++i) {
        const BusValue& told = objects.at(i).at(nm::device);
        if (told.kind() == BusValue::Kind::Dictionary)
            picture->devices.push_back(device(objects.keys()[i], told, objects));
    }
}

namespace {

ServiceModem modem(const std::string& path, const BusValue& told, const BusValue& network)
{
    ServiceModem read;
    read.path = path;
    read.state = static_cast<int64_t>(told.at("State").toNumber());
    read.failedReason = number(told, "StateFailedReason");
    read.power = number(told, "PowerState");
    read.lock = number(told, "UnlockRequired");
    read.signal = static_cast<uint32_t>(told.at("SignalQuality").at(std::size_t{0}).toNumber());
    read.technologies = number(told, "AccessTechnologies");
    read.registration = number(network, "RegistrationState");
    read.operatorCode = network.at("OperatorCode").toText();
    read.operatorName = network.at("OperatorName").toText();
    return read;
}

} // namespace

void readModemManager(const BusValue& objects, ServicePicture* picture)
{
    for (std::size_t i = 0; i < objects.keys().size(); ++i) {
        const BusValue& told = objects.at(i).at(mm::modem);
        if (told.kind() == BusValue::Kind::Dictionary)
            picture->modems.push_back(
                modem(objects.keys()[i], told, objects.at(i).at(mm::modem3gpp)));
    }
}

} // namespace network
