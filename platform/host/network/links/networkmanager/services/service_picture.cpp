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

ServiceDevice device(const std::string& path, const BusValue& told, const BusValue& objects)
{
    ServiceDevice read;
    read.path = path;
    read.interface = told.at("Interface").toText();
    read.ipInterface = told.at("IpInterface").toText();
    read.type = number(told, "DeviceType");
    read.state = number(told, "State");
    read.reason = static_cast<uint32_t>(told.at("StateReason").at(1).toNumber());
    read.managed = told.at("Managed").toFlag();
    read.modem = objectPath(told.at("Udi"));
    read.active = objectPath(told.at("ActiveConnection"));
    read.known = !told.at("AvailableConnections").elements().empty();
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
