// The names and numbers of NetworkManager's and ModemManager's interfaces that are used here.
#ifndef NETWORK_NETWORKMANAGER_SERVICE_NAMES_H
#define NETWORK_NETWORKMANAGER_SERVICE_NAMES_H

#include <cstdint>

namespace network {

inline constexpr char propertiesInterface[] = "org.freedesktop.DBus.Properties";
inline constexpr char objectManager[] = "org.freedesktop.DBus.ObjectManager";
inline constexpr char noObject[] = "/";

namespace nm {

inline constexpr char service[] = "org.freedesktop.NetworkManager";
inline constexpr char root[] = "/org/freedesktop";
inline constexpr char managerPath[] = "/org/freedesktop/NetworkManager";
inline constexpr char manager[] = "org.freedesktop.NetworkManager";
inline constexpr char device[] = "org.freedesktop.NetworkManager.Device";
inline constexpr char active[] = "org.freedesktop.NetworkManager.Connection.Active";
inline constexpr char connection[] = "org.freedesktop.NetworkManager.Settings.Connection";
inline constexpr char ip4Config[] = "org.freedesktop.NetworkManager.IP4Config";

enum DeviceType : uint32_t { Ethernet = 1, Wifi = 2, Modem = 8, Veth = 20 };

enum DeviceState : uint32_t {
    Unmanaged = 10,
    Unavailable = 20,
    Disconnected = 30,
    Prepare = 40,
    NeedAuth = 60,
    IpConfig = 70,
    IpCheck = 80,
    Activated = 100,
    Deactivating = 110,
    Failed = 120
};

// A reason that says no more than that something went wrong.
inline constexpr uint32_t unknownReason = 1;

enum ActiveState : uint32_t { ActiveUp = 2, ActiveGone = 4 };

} // namespace nm

namespace mm {

inline constexpr char service[] = "org.freedesktop.ModemManager1";
inline constexpr char root[] = "/org/freedesktop/ModemManager1";
inline constexpr char modem[] = "org.freedesktop.ModemManager1.Modem";
inline constexpr char modem3gpp[] = "org.freedesktop.ModemManager1.Modem.Modem3gpp";
inline constexpr char simple[] = "org.freedesktop.ModemManager1.Modem.Simple";
inline constexpr char sim[] = "org.freedesktop.ModemManager1.Sim";
inline constexpr char bearer[] = "org.freedesktop.ModemManager1.Bearer";
inline constexpr char errors[] = "org.freedesktop.ModemManager1.Error.";

enum ModemState : int64_t { Enabled = 6, Connected = 11 };

enum Lock : uint32_t { LockUnknown = 0, LockNone = 1, LockPin = 2 };

enum Power : uint32_t { PowerUnknown = 0, PowerOff = 1, PowerLow = 2, PowerOn = 3 };

} // namespace mm

} // namespace network

#endif
