// The rows of the settings page as a table.
#ifndef PHONE_SETTINGS_SETTINGROWS_H
#define PHONE_SETTINGS_SETTINGROWS_H

#include <vector>

#include <QString>

namespace phone {

struct SettingItem
{
    QString text;
    QString value;
};

struct SettingRow
{
    const char* name; // one of settingnames, or "" for the feature
    int feature;      // 0, or the number of the feature that the row switches on ("1") and off
    bool isInteger;   // the node holds the value as a number
    const char* id;
    const char* english;
    std::vector<SettingItem> (*items)();
};

const std::vector<SettingRow>& settingRows();

// The value that a row has now, and its change.
QString settingValue(const SettingRow& row);
void storeSetting(const SettingRow& row, const QString& value);

} // namespace phone

#endif
