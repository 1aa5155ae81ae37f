// NetworkManager as a test wants it to be: a modem, an Ethernet device and a WiFi that knows a
// network, and activations that become what the test says, signal by signal.
#ifndef TESTS_FAKE_NETWORK_MANAGER_H
#define TESTS_FAKE_NETWORK_MANAGER_H

#include "network/fake/objects.h"

namespace fakebus {

// States of a device, as in NetworkManager's D-Bus interface.
enum DeviceState : uint32_t {
    Unmanaged = 10,
    Unavailable = 20,
    Disconnected = 30,
    Prepare = 40,
    Config = 50,
    NeedAuth = 60,
    IpConfig = 70,
    IpCheck = 80,
    Secondaries = 90,
    Activated = 100,
    Deactivating = 110,
    Failed = 120
};

// States of an active connection.
enum ActiveState : uint32_t { Activating = 1, ActiveUp = 2, ActiveGoing = 3, ActiveGone = 4 };

inline const char* const nmService = "org.freedesktop.NetworkManager";
inline const char* const nmPath = "/org/freedesktop/NetworkManager";
inline const char* const modemDevice = "/org/freedesktop/NetworkManager/Devices/1";
inline const char* const wiredDevice = "/org/freedesktop/NetworkManager/Devices/2";
inline const char* const wifiDevice = "/org/freedesktop/NetworkManager/Devices/3";

class NetworkManager
{
public:
    NetworkManager();

    Service service;

    // What follows the reply to an activation: it connects unless the test says otherwise.
    std::function<void()> onActivate = [this] { connect(); };

    // The last activation: its device, the settings as texts, its options, and its own object.
    std::string device() const { return m_device; }
    const Told& settings() const { return m_settings; }
    const Told& options() const { return m_options; }
    std::string active() const { return m_active; }

    // Activations that neither failed nor were taken down.
    std::size_t living() const;

    // Signals about the last activation. A reason is a number of NMDeviceStateReason.
    void deviceState(uint32_t state, uint32_t reason = 0);
    void activeState(uint32_t state, uint32_t reason = 0);

    // Whole outcomes of the last activation, in the order in which NetworkManager tells them.
    void connect();
    void fail(uint32_t reason);
    void breakWith(uint32_t state, uint32_t reason);

    // The device and its address, as the next connect tells them; also values that cannot be.
    std::string interface = "hso0";
    Value addressData = addresses({"10.99.0.2"});

private:
    void addDevice(const char* path, uint32_t type, const char* interface);
    int activate(sd_bus_message* call, bool withConnection);
    int deactivate(sd_bus_message* call);
    void replyActivated(sd_bus_message* call, bool withOptions);
    void takeDown(const std::string& active, uint32_t reason);

    std::string m_device = modemDevice;
    std::string m_active;
    std::string m_connection;
    Told m_settings;
    Told m_options;
    Settings m_applied;
    int m_count = 0;
};

} // namespace fakebus

#endif
