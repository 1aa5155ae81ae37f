#include "settings/settingrows.h"

#include <setuputility.h>
#include <toolkit/ylook.h>

#include "settings/settings.h"
#include "texts/phone_text.h"

namespace phone {

namespace {

QString usual()
{
    return text("TXT_RID_PHONE_SET_SYSTEM", "As the system");
}

// Each language in its own words, so that who cannot read the present one finds theirs.
std::vector<SettingItem> languages()
{
    std::vector<SettingItem> items = {{usual(), QString()}};
    for (const QString& language : YLook::languages())
        items.push_back({YLook::nameOf(language), language});
    return items;
}

struct Word
{
    const char* value;
    const char* id;
    const char* english;
};

template <std::size_t count> std::vector<SettingItem> itemsOf(const Word (&words)[count])
{
    std::vector<SettingItem> items;
    for (const Word& word : words)
        items.push_back({text(word.id, word.english), QString::fromLatin1(word.value)});
    return items;
}

std::vector<SettingItem> themes()
{
    const Word words[] = {{"light", "TXT_RID_PHONE_SET_LIGHT", "Light"},
                          {"dark", "TXT_RID_PHONE_SET_DARK", "Dark"},
                          {"system", "TXT_RID_PHONE_SET_SYSTEM", "As the system"}};
    return itemsOf(words);
}

std::vector<SettingItem> accents()
{
    const Word words[] = {{"blue", "TXT_RID_PHONE_ACCENT_BLUE", "Blue"},
                          {"plum", "TXT_RID_PHONE_ACCENT_PLUM", "Plum"},
                          {"teal", "TXT_RID_PHONE_ACCENT_TEAL", "Teal"}};
    return itemsOf(words);
}

std::vector<SettingItem> textSizes()
{
    const Word words[] = {{"small", "TXT_RID_PHONE_SIZE_SMALL", "Small"},
                          {"normal", "TXT_RID_PHONE_SIZE_NORMAL", "Normal"},
                          {"large", "TXT_RID_PHONE_SIZE_LARGE", "Large"},
                          {"largest", "TXT_RID_PHONE_SIZE_LARGEST", "Largest"}};
    return itemsOf(words);
}

std::vector<SettingItem> screens()
{
    std::vector<SettingItem> items;
    for (const char* size : {"240x320", "320x240", "360x640", "480x800"}) {
        const QString value = QString::fromLatin1(size);
        items.push_back({QString(value).replace('x', QStringLiteral(" \u00d7 ")), value});
    }
    return items;
}

std::vector<SettingItem> switches()
{
    return {{text("TXT_RID_PHONE_SET_OFF", "Off"), QString()},
            {text("TXT_RID_PHONE_SET_ON", "On"), QStringLiteral("1")}};
}

std::vector<SettingItem> preferences()
{
    return {
        {text("TXT_RID_COMBOBOX_WIFI_THEN_CELLULAR", "WiFi, then Cellular"), QStringLiteral("0")},
        {text("TXT_RID_COMBOBOX_WIFI_ONLY", "WiFi Only"), QStringLiteral("1")},
        {text("TXT_RID_COMBOBOX_CELLULAR_ONLY", "Cellular Only"), QStringLiteral("2")}};
}

// What is used where nothing was chosen: the environment may say it.
QString lookValue(const char* name)
{
    const YLook look = YLook::current();
    if (name == settingnames::theme)
        return look.theme;
    if (name == settingnames::accent)
        return look.accent;
    if (name == settingnames::textSize)
        return look.textSize.isEmpty() ? QStringLiteral("normal") : look.textSize;
    return QString();
}

} // namespace

const std::vector<SettingRow>& settingRows()
{
    static const std::vector<SettingRow> rows = {
        {settingnames::language, 0, false, "TXT_RID_PHONE_SET_LANGUAGE", "Language", languages},
        {settingnames::theme, 0, false, "TXT_RID_PHONE_SET_THEME", "Theme", themes},
        {settingnames::accent, 0, false, "TXT_RID_PHONE_SET_ACCENT", "Accent", accents},
        {settingnames::textSize, 0, false, "TXT_RID_PHONE_SET_TEXT_SIZE", "Text size", textSizes},
        {settingnames::screen, 0, false, "TXT_RID_PHONE_SET_SCREEN", "Screen", screens},
        {settingnames::keypad, 0, false, "TXT_RID_PHONE_SET_KEYPAD", "Letters on number keys",
         switches},
        {"", SETUP_FEATURE_WIFI, false, "TXT_RID_PHONE_SET_WIFI", "WiFi", switches},
        {settingnames::preference, 0, true, "TXT_RID_PHONE_SET_PREFERENCE",
         "Preference of new connections", preferences},
    };
    return rows;
}

QString settingValue(const SettingRow& row)
{
    const Settings& settings = Settings::instance();
    if (row.feature != 0)
        return settings.hasFeature(row.feature) ? QStringLiteral("1") : QString();
    if (row.isInteger)
        return QString::number(settings.integer(row.name, 0));
    return settings.text(row.name, lookValue(row.name));
}

void storeSetting(const SettingRow& row, const QString& value)
{
    Settings& settings = Settings::instance();
    if (row.feature != 0)
        settings.setFeature(row.feature, !value.isEmpty());
    else if (row.isInteger)
        settings.setInteger(row.name, value.toInt());
    else
        settings.setText(row.name, value);
}

} // namespace phone
