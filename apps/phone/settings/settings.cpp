#include "settings/settings.h"

#include <QtGlobal>

namespace phone {

namespace {

Settings* theSettings = nullptr;

struct LookSetting
{
    const char* name;
    const char* variable;
};

const LookSetting lookSettings[] = {
    {settingnames::language, "VORN_LANG"}, {settingnames::theme, "VORN_THEME"},
    {settingnames::accent, "VORN_ACCENT"}, {settingnames::textSize, "VORN_TEXT_SIZE"},
    {settingnames::screen, "VORN_SCREEN"}, {settingnames::keypad, "VORN_KEYPAD"}};

} // namespace

Settings::Settings()
{
    theSettings = this;
    m_writer.setMaxThreadCount(1);
    load();
}

Settings::~Settings()
{
    flush();
    theSettings = nullptr;
}

Settings& Settings::instance()
{
    return *theSettings;
}

void Settings::load()
{
    m_texts.clear();
    m_integers.clear();
    m_features.clear();
    settingshost::Settings stored;
    settingshost::listSettings(&stored);
    for (const auto& [name, setting] : stored) {
        if (setting.type == settingshost::Setting::Type::Text)
            m_texts.insert(QString::fromStdString(name), QString::fromStdString(setting.text));
        else if (setting.type == settingshost::Setting::Type::Integer)
            m_integers.insert(QString::fromStdString(name), setting.integer);
    }
    settingshost::Features features;
    settingshost::listFeatures(&features);
    for (const auto& [number, isAvailable] : features)
        m_features.insert(number, isAvailable);
}

QString Settings::text(const char* name, const QString& usual) const
{
    const QString value = m_texts.value(QString::fromLatin1(name));
    return value.isEmpty() ? usual : value;
}

void Settings::setText(const char* name, const QString& value)
{
    if (m_texts.value(QString::fromLatin1(name)) == value)
        return;
    m_texts.insert(QString::fromLatin1(name), value);
    settingshost::Setting setting;
    setting.type = settingshost::Setting::Type::Text;
    setting.text = value.toStdString();
    write([node = std::string(name), setting] { return settingshost::setSetting(node, setting); });
}

int Settings::integer(const char* name, int usual) const
{
    return m_integers.value(QString::fromLatin1(name), usual);
}

void Settings::setInteger(const char* name, int value)
{
    m_integers.insert(QString::fromLatin1(name), value);
    settingshost::Setting setting;
    setting.integer = value;
    write([node = std::string(name), setting] { return settingshost::setSetting(node, setting); });
}

bool Settings::hasFeature(int number) const
{
    return m_features.value(number, false);
}

void Settings::setFeature(int number, bool isAvailable)
{
    m_features.insert(number, isAvailable);
    write([=] { return settingshost::setFeature(number, isAvailable); });
}

void Settings::write(const std::function<settingshost::Result()>& job)
{
    m_writer.start([this, job] {
        const settingshost::Result result = job();
        if (!result.isOk() && result.code != settingshost::Code::NotSynced)
            emit failed(QString::fromStdString(result.message));
    });
}

void Settings::flush()
{
    m_writer.waitForDone();
}

void applyLook()
{
    for (const LookSetting& setting : lookSettings) {
        const QString value = Settings::instance().text(setting.name);
        if (!value.isEmpty() && !qEnvironmentVariableIsSet(setting.variable))
            qputenv(setting.variable, value.toUtf8());
    }
}

} // namespace phone
