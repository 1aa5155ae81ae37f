// The wizard over a recorded network API, with the application log and the settings of a root of
// its own.
#ifndef TESTS_WIZARD_WIZARD_FIXTURE_H
#define TESTS_WIZARD_WIZARD_FIXTURE_H

#include <string>

#include <QTemporaryDir>

#include "profiles/recorder.h"
#include "wizard/world/recorded_napi.h"
#include "wizard/world/wizard_driver.h"

class Wizard : public GuiTest
{
protected:
    Wizard();
    ~Wizard() override;

    void SetUp() override;

    // etc/features.json and etc/settings.json of the root.
    void setWifi(bool available);
    void setDefaultPreference(const std::string& json);
    void writeFile(const char* name, const std::string& text);

    // Runs an entry point; `steps` run one after the other, each once the wizard is idle. What the
    // steps do has to end it. Result: that of the entry point.
    typedef int (*EntryPoint)(QString&);
    int run(EntryPoint entry, const Steps& steps);
    int create(const Steps& steps);
    int copy(const QString& source, const Steps& steps);
    int edit(const QString& profile, const Steps& steps);

    // Steps.
    static void cancel() { press(Qt::Key_Escape); }
    static void save() { press(Qt::Key_F2); }
    static void dismiss() { press(Qt::Key_Return); }
    static void openPage2();

    // What was called and logged since the last take.
    static recorder::Calls take();

    QString name;
    QTemporaryDir root;
    RecordedNapi napi;

private:
    FILE* m_log = nullptr;
};

#endif
