#include "network/links/networkmanager/bus/connection_settings.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include <strings.h>

namespace network {

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

const Setting* ConnectionSettings::find(const char* section, const char* key) const
{
    auto found = std::find_if(m_entries.begin(), m_entries.end(), [&](const Setting& one) {
        return std::strcmp(one.section, section) == 0 && std::strcmp(one.key, key) == 0;
    });
    return found == m_entries.end() ? nullptr : &*found;
}

} // namespace network
