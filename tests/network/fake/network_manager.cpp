#include "network/fake/network_manager.h"

#include <gtest/gtest.h>

namespace fakebus {

namespace {

const char* const deviceInterface = "org.freedesktop.NetworkManager.Device";
const char* const activeInterface = "org.freedesktop.NetworkManager.Connection.Active";
const char* const ip4 = "org.freedesktop.NetworkManager.IP4Config";
const char* const connectionInterface = "org.freedesktop.NetworkManager.Settings.Connection";
const char* const ipPath = "/org/freedesktop/NetworkManager/IP4Config/1";

const uint32_t typeWired = 1;
const uint32_t typeWifi = 2;
const uint32_t typeModem = 8;

} // namespace

NetworkManager::NetworkManager() : service(nmService, "/org/freedesktop")
{
    service.objects[nmPath][nmService] = {
        {"Version", text("1.42.4")},
        {"State", number(20)},
        {"NetworkingEnabled", flag(true)},
        {"WwanEnabled", flag(true)},
        {"WwanHardwareEnabled", flag(true)},
        {"WirelessEnabled", flag(true)},
        {"WirelessHardwareEnabled", flag(true)},
        {"Devices", paths({modemDevice, wiredDevice, wifiDevice})},
        {"AllDevices", paths({modemDevice, wiredDevice, wifiDevice})},
        {"ActiveConnections", paths({})}};
    addDevice(modemDevice, typeModem, "ttyHS0");
    addDevice(wiredDevice, typeWired, "eth9");
    addDevice(wifiDevice, typeWifi, "wlan0");
    service.objects[wifiDevice][deviceInterface]["AvailableConnections"] =
        paths({"/org/freedesktop/NetworkManager/Settings/90"});
    Interfaces& modem = service.objects[modemDevice];
    modem[deviceInterface]["Udi"] = text("/org/freedesktop/ModemManager1/Modem/0");
    modem["org.freedesktop.NetworkManager.Device.Modem"] = {{"Apn", text("")}};
    service.objects[wiredDevice]["org.freedesktop.NetworkManager.Device.Wired"] = {
        {"Carrier", flag(true)}};
    service.on("AddAndActivateConnection2",
               [this](sd_bus_message* call) { return activate(call, true); });
    service.on("ActivateConnection",
               [this](sd_bus_message* call) { return activate(call, false); });
    service.on("DeactivateConnection", [this](sd_bus_message* call) { return deactivate(call); });
    service.on("GetSettings", [this](sd_bus_message* call) {
        sd_bus_message* reply = nullptr;
        sd_bus_message_new_method_return(call, &reply);
        appendSettings(reply, m_applied);
        int result = sd_bus_send(nullptr, reply, nullptr);
        sd_bus_message_unref(reply);
        return result;
    });
}

void NetworkManager::addDevice(const char* path, uint32_t type, const char* name)
{
    service.objects[path][deviceInterface] = {{"DeviceType", number(type)},
                                              {"Interface", text(name)},
                                              {"IpInterface", text("")},
                                              {"Udi", text("")},
                                              {"Managed", flag(true)},
                                              {"Real", flag(true)},
                                              {"State", number(Disconnected)},
                                              {"StateReason", two(Disconnected, 0)},
                                              {"ActiveConnection", fakebus::path("/")},
                                              {"Ip4Config", fakebus::path("/")},
                                              {"AvailableConnections", paths({})}};
}

std::size_t NetworkManager::living() const
{
    std::size_t count = 0;
    for (const auto& [path, interfaces] : service.objects)
        count += interfaces.count(activeInterface);
    return count;
}

int NetworkManager::activate(sd_bus_message* call, bool withConnection)
{
    m_settings.clear();
    m_options.clear();
    int result = 0;
    const char* connection = "";
    if (withConnection)
        result = readSettings(call, &m_settings);
    else
        result = sd_bus_message_read(call, "o", &connection);
    const char* device = nullptr;
    const char* object = nullptr;
    if (result >= 0)
        result = sd_bus_message_read(call, "oo", &device, &object);
    if (result >= 0 && withConnection)
        result = readDictionary(call, "", &m_options);
    if (result < 0)
        return result;
    m_device = device;
    replyActivated(call, withConnection);
    onActivate();
    return 1;
}

void NetworkManager::replyActivated(sd_bus_message* call, bool withOptions)
{
    ++m_count;
    m_active = "/org/freedesktop/NetworkManager/ActiveConnection/" + std::to_string(m_count);
    m_connection = "/org/freedesktop/NetworkManager/Settings/" + std::to_string(m_count);
    m_applied = {{"connection", {{"type", text(m_settings["connection.type"])}}}};
    if (m_settings.count("gsm.apn"))
        m_applied["gsm"]["apn"] = text(m_settings["gsm.apn"]);
    service.objects[m_connection][connectionInterface] = {{"Unsaved", flag(true)}};
    service.objects[m_active][activeInterface] = {{"State", number(Activating)},
                                                  {"Connection", path(m_connection)},
                                                  {"Devices", paths({m_device})},
                                                  {"Id", text("link")},
                                                  {"Type", text(m_settings["connection.type"])},
                                                  {"Ip4Config", path("/")}};
    service.change(nmPath, nmService, "ActiveConnections", paths({m_active}));
    service.change(m_device, deviceInterface, "ActiveConnection", path(m_active));
    if (withOptions) {
        sd_bus_reply_method_return(call, "ooa{sv}", m_connection.c_str(), m_active.c_str(), 0);
        return;
    }
    sd_bus_reply_method_return(call, "o", m_active.c_str());
}

int NetworkManager::deactivate(sd_bus_message* call)
{
    const char* active = nullptr;
    int result = sd_bus_message_read(call, "o", &active);
    if (result < 0)
        return result;
    if (!service.objects.count(active))
        return sd_bus_reply_method_errorf(
            call, "org.freedesktop.NetworkManager.ConnectionNotActive", "not active");
    sd_bus_reply_method_return(call, "");
    takeDown(active, 39);
    return 1;
}

void NetworkManager::takeDown(const std::string& active, uint32_t reason)
{
    if (active == m_active) {
        breakWith(Disconnected, reason);
        return;
    }
    service.change(active, activeInterface, "State", number(ActiveGone));
    service.remove(active);
}

void NetworkManager::deviceState(uint32_t state, uint32_t reason)
{
    // A device may be gone from the bus already.
    if (!service.objects.count(m_device))
        return;
    service.change(m_device, deviceInterface, "State", number(state));
    service.change(m_device, deviceInterface, "StateReason", two(state, reason));
    service.emit(m_device, deviceInterface, "StateChanged", [&](sd_bus_message* message) {
        return sd_bus_message_append(message, "uuu", state, 0, reason);
    });
}

void NetworkManager::activeState(uint32_t state, uint32_t reason)
{
    if (!service.objects.count(m_active))
        return;
    service.change(m_active, activeInterface, "State", number(state));
    service.emit(m_active, activeInterface, "StateChanged", [&](sd_bus_message* message) {
        return sd_bus_message_append(message, "uu", state, reason);
    });
    if (state == ActiveGone)
        service.remove(m_active);
}

void NetworkManager::connect()
{
    for (uint32_t state : {Prepare, Config, IpConfig})
        deviceState(state);
    service.objects[ipPath][ip4] = {{"AddressData", addressData},
                                    {"Gateway", text("10.99.0.1")},
                                    {"NameserverData", addresses({"10.99.0.1"})}};
    service.change(m_device, deviceInterface, "IpInterface", text(interface));
    service.change(m_device, deviceInterface, "Ip4Config", path(ipPath));
    service.change(m_active, activeInterface, "Ip4Config", path(ipPath));
    for (uint32_t state : {IpCheck, Secondaries, Activated})
        deviceState(state);
    activeState(ActiveUp);
}

void NetworkManager::fail(uint32_t reason)
{
    deviceState(Prepare);
    deviceState(Failed, reason);
    activeState(ActiveGone, 3);
    deviceState(Disconnected);
}

void NetworkManager::breakWith(uint32_t state, uint32_t reason)
{
    if (state == Disconnected) {
        deviceState(Deactivating, reason);
        activeState(ActiveGoing, 3);
    }
    service.change(m_device, deviceInterface, "Ip4Config", path("/"));
    deviceState(state, reason);
    activeState(ActiveGone, 3);
}

} // namespace fakebus
