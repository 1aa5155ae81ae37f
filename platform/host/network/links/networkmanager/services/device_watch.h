// What NetworkManager tells of one device, kept current by its signals.
#ifndef NETWORK_NETWORKMANAGER_DEVICE_WATCH_H
#define NETWORK_NETWORKMANAGER_DEVICE_WATCH_H

#include <functional>
#include <string>

#include "network/links/networkmanager/bus/bus_connection.h"
#include "network/links/networkmanager/services/service_address.h"
#include "network/links/networkmanager/services/service_picture.h"

namespace network {

// Listens to this device alone, and of a modem to its changes of state. While nothing changes it
// costs nothing, and when a link comes up its address is there without a question.
class DeviceWatch
{
public:
    // Begins with what was listed, and asks for what has changed meanwhile. `changed` is called
    // from within BusConnection::process(), and must not end the watch.
    DeviceWatch(BusConnection& bus, const ServiceDevice& listed, std::function<void()> changed);
    DeviceWatch(const DeviceWatch&) = delete;
    DeviceWatch& operator=(const DeviceWatch&) = delete;

    // Asks once more, for a service may not tell every change.
    void ask();

    const ServiceDevice& device() const { return m_device; }
    const ServiceAddress& address() const { return m_address; }

    // The modem has said, since the watch began, that it is connected to a network.
    bool isModemConnected() const;

    // It is known, without asking anybody, that the device is free and switched on.
    bool isFree() const;

private:
    using Reader = std::function<void(const BusValue& properties)>;

    struct Question
    {
        bool pending = false;
        BusSlot answer;
    };

    bool isModem() const;
    BusSlot listen(const std::string& path, const char* interface, Reader reader);
    void askFor(const std::string& path, const char* interface, Question* question, Reader reader);
    void readDevice(const BusValue& properties);
    void listenToConfig();
    void askConfig();
    void readConfig(const BusValue& properties);
    void modemChanged(BusMessage& signal);

    BusConnection& m_bus;
    const std::function<void()> m_changed;
    ServiceDevice m_device;
    ServiceAddress m_address;
    bool m_current = false;   // heard of since the watch began
    int64_t m_modemState = 0; // MMModemState, 0 while nothing was heard
    BusSlot m_deviceSignals, m_configSignals, m_modemSignals;
    Question m_ofDevice, m_ofConfig;
};

} // namespace network

#endif
