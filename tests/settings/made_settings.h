// Settings of each type, as they are handed to the settings library.
#ifndef TESTS_MADE_SETTINGS_H
#define TESTS_MADE_SETTINGS_H

#include <string>

#include "settings/settings_host.h"

inline settingshost::Setting integer(int value)
{
    settingshost::Setting setting;
    setting.integer = value;
    return setting;
}

inline settingshost::Setting text(const std::string& value)
{
    settingshost::Setting setting;
    setting.type = settingshost::Setting::Type::Text;
    setting.text = value;
    return setting;
}

inline settingshost::Setting boolean(bool value)
{
    settingshost::Setting setting;
    setting.type = settingshost::Setting::Type::Boolean;
    setting.boolean = value;
    return setting;
}

#endif
