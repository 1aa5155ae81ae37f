// What a profile becomes: a connection of NetworkManager, as data.
#ifndef NETWORK_NETWORKMANAGER_CONNECTION_SETTINGS_H
#define NETWORK_NETWORKMANAGER_CONNECTION_SETTINGS_H

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

#include "network/links/bearer.h"

namespace network {

// Each alternative is one type of the bus: b, i, x, s, au, as.
using SettingValue = std::variant<bool, int32_t, int64_t, std::string, std::vector<uint32_t>,
                                  std::vector<std::string>>;

struct Setting
{
    const char* section;
    const char* key;
    SettingValue value;
};

// The entries of one section follow each other. The memory of the texts is cleared with the object,
// for a password may be among them.
class ConnectionSettings
{
public:
    ConnectionSettings() = default;
    ~ConnectionSettings();
    ConnectionSettings(ConnectionSettings&&) = default;
    ConnectionSettings& operator=(ConnectionSettings&&) = delete;

    void add(const char* section, const char* key, SettingValue value);
    const std::vector<Setting>& entries() const { return m_entries; }
    const Setting* find(const char* section, const char* key) const;

private:
    std::vector<Setting> m_entries;
};

// Why a profile cannot become a connection.
enum class ProfileFault { None, AccessPoint, UserName, Password };

// An access point name is 1 to 100 letters, digits and signs of ASCII, without quotes, commas and
// blanks; user name and password are texts without control characters and quotes. A modem is
// dialled with all three in one line of text.
ProfileFault faultOf(const NetworkProfile& record);

// The text of a field, which ends at its first NUL, or fills it.
template <std::size_t size> std::string fieldText(const char (&field)[size])
{
    std::string text(field, size);
    return text.substr(0, text.find('\0'));
}

// Packet data with the profile's access point, user name, password and name servers. `owner` is the
// name of the user who alone may use and see it, or "" for everybody.
ConnectionSettings packetDataSettings(const Opening& opening, const std::string& owner);

// A wired network that gives an address, with the profile's name servers.
ConnectionSettings wiredSettings(const Opening& opening, const std::string& owner);

// What makes the servers of a connection the first ones of the machine's resolver.
Setting firstNameServers();

} // namespace network

#endif
