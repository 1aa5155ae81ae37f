#include "wizard/world/wizard_fixture.h"

#include <cstdio>
#include <fstream>

#include <QDir>

#include <applog.h>
#include <profilefunctions.h>
#include <ykbmainwidget.h>

namespace {

ssize_t takeLog(void*, const char* bytes, std::size_t size)
{
    recorder::note("log: " + std::string(bytes, size));
    return static_cast<ssize_t>(size);
}

} // namespace

// A buffer that holds every message whole; it is emptied when the calls are taken.
Wizard::Wizard() : m_log(::fopencookie(nullptr, "w", {nullptr, takeLog, nullptr, nullptr}))
{
    std::setvbuf(m_log, nullptr, _IOFBF, 65536);
    APPLOG_ModuleStream = m_log;
    recorder::calls().clear();
}

Wizard::~Wizard()
{
    APPLOG_ModuleStream = nullptr;
    std::fclose(m_log);
}

void Wizard::SetUp()
{
    GuiTest::SetUp();
    qputenv("VORN_ROOT", root.path().toUtf8());
    QDir(root.path()).mkpath("etc");
    setWifi(true);
}

void Wizard::writeFile(const char* file, const std::string& text)
{
    std::ofstream(root.filePath(file).toStdString()) << text;
}

void Wizard::setWifi(bool available)
{
    writeFile("etc/features.json", available ? "{\"431\": true}" : "{\"431\": false}");
}

void Wizard::setDefaultPreference(const std::string& json)
{
    writeFile("etc/settings.json", "{\"DefConnPrefer\": " + json + "}");
}

int Wizard::run(EntryPoint entry, const Steps& steps)
{
    bool hasEnded = false;
    perform(Steps{steps, closeWhatIsOpen, [&hasEnded] { hasEnded = true; }});
    const int result = entry(name);
    EXPECT_TRUE(waitFor([&hasEnded] { return hasEnded; }));
    settle();
    return result;
}

int Wizard::create(const Steps& steps)
{
    return run(createProfilebyUser, steps);
}

int Wizard::copy(const QString& source, const Steps& steps)
{
    name = source;
    return run(copyProfilebyUser, steps);
}

int Wizard::edit(const QString& profile, const Steps& steps)
{
    name = profile;
    return run(editProfilebyUser, steps);
}

void Wizard::openPage2()
{
    walkTo(wizardPage(1), "Additional settings:");
    press(Qt::Key_Return);
}

recorder::Calls Wizard::take()
{
    std::fflush(APPLOG_ModuleStream);
    recorder::Calls calls;
    calls.swap(recorder::calls());
    return calls;
}
