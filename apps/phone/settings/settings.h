// What the user has chosen, kept in the phone's settings tree.
#ifndef PHONE_SETTINGS_SETTINGS_H
#define PHONE_SETTINGS_SETTINGS_H

#include <functional>
#include <string>

#include <QHash>
#include <QObject>
#include <QString>
#include <QThreadPool>

#include <settings/settings_host.h>

namespace phone {

// The names of the nodes. An empty text, or none, is the usual choice.
namespace settingnames {
constexpr char language[] = "Phone.Language"; // "de", "zh_CN"
constexpr char theme[] = "Phone.Theme";       // "light", "dark", "system"
constexpr char accent[] = "Phone.Accent";     // one of YLook::accents()
constexpr char textSize[] = "Phone.TextSize"; // one of YLook::textSizes()
constexpr char screen[] = "Phone.Screen";     // "240x320"
constexpr char keypad[] = "Phone.Keypad";     // "1"
constexpr char chosen[] = "Phone.Default";    // the profile that is marked
constexpr char page[] = "Phone.Page";         // the address that was fetched last
constexpr char preference[] = "DefConnPrefer";
} // namespace settingnames

// Values are known at once and written behind the program's back, one after the other, since a
// write waits for the disk and for other programs. One for the process, which main makes.
class Settings : public QObject
{
    Q_OBJECT

public:
    Settings();
    // Waits until everything is written.
    ~Settings() override;

    static Settings& instance();

    QString text(const char* name, const QString& usual = QString()) const;
    void setText(const char* name, const QString& value);

    int integer(const char* name, int usual) const;
    void setInteger(const char* name, int value);

    bool hasFeature(int number) const;
    void setFeature(int number, bool isAvailable);

    // Reads everything anew.
    void load();
    // Waits until everything is written.
    void flush();

signals:
    // A value could not be written; `why` is a sentence for people.
    void failed(const QString& why);

private:
    void write(const std::function<settingshost::Result()>& job);

    QHash<QString, QString> m_texts;
    QHash<QString, int> m_integers;
    QHash<int, bool> m_features;
    QThreadPool m_writer;
};

// Puts what is chosen of the look into the environment, for the variables that are not set there:
// the toolkit reads them when the application object is made. To be called before that.
void applyLook();

} // namespace phone

#endif
