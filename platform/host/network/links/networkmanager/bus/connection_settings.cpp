#include "network/links/networkmanager/bus/connection_settings.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include <strings.h>

namespace network {

// Entries that move to other memory would leave their texts in the old one.
constexpr std::size_t mostEntries = 32;

ConnectionSettings::ConnectionSettings()
{
    m_entries.reserve(mostEntries);
}

ConnectionSettings::~ConnectionSettings()
{
    for (Setting& setting : m_entries) {
        if (auto text = std::get_if<std::string>(&setting.value))
            ::explicit_bzero(text->data(), text->size());
    }
}

void ConnectionSettings::add(const char* section, const char* key, SettingValue value)
{
    m_entries.push_back({section, key, std::move(value)});
}

void ConnectionSettings::addSecret(const char* section, const char* key, std::string_view text)
{
    m_entries.push_back({section, key, std::string()});
    std::get<std::string>(m_entries.back().value).assign(text);
}

const Setting* ConnectionSettings::find(const char* section, const char* key) const
{
    auto found = std::find_if(m_entries.begin(), m_entries.end(), [&](const Setting& one) {
        return std::strcmp(one.section, section) == 0 && std::strcmp(one.key, key) == 0;
    });
    return found == m_entries.end() ? nullptr : &*found;
}

} // namespace network
