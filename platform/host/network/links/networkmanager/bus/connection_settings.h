// A connection of NetworkManager as data: sections with entries, each a value of the bus.
#ifndef NETWORK_NETWORKMANAGER_CONNECTION_SETTINGS_H
#define NETWORK_NETWORKMANAGER_CONNECTION_SETTINGS_H

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

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
    ConnectionSettings();
    ~ConnectionSettings();
    ConnectionSettings(ConnectionSettings&&) = default;
    ConnectionSettings& operator=(ConnectionSettings&&) = delete;

    void add(const char* section, const char* key, SettingValue value);

    // A text of which no other copy is made.
    void addSecret(const char* section, const char* key, std::string_view text);
    const std::vector<Setting>& entries() const { return m_entries; }
    const Setting* find(const char* section, const char* key) const;

private:
    std::vector<Setting> m_entries;
};

} // namespace network

#endif
