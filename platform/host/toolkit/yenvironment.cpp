#include "yenvironment.h"

#include <cstdio>

#include <QApplication>
#include <QLocale>

#include "base/look_variables.h"
#include "toolkit/theme/ydesktop.h"

namespace {

// A program without widgets has no screen for which a value could be wrong.
void tellIgnored()
{
    static bool told = false;
    if (told || !qobject_cast<QApplication*>(QCoreApplication::instance()))
        return;
    told = true;
    for (const base::LookVariable& variable : base::lookVariables) {
        const std::string complaint = base::lookComplaint(variable);
        if (!complaint.empty())
            std::fprintf(stderr, "%s\n", complaint.c_str());
    }
}

bool isPath(const std::string& theme)
{
    return theme.find('/') != theme.npos;
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(tellIgnored)

YLook YEnvironment::look()
{
    YLook look;
    const std::string theme = base::lookValue("VORN_THEME");
    look.theme =
        theme.empty() || isPath(theme) ? QStringLiteral("light") : QString::fromStdString(theme);
    look.accent = QString::fromStdString(base::lookValue("VORN_ACCENT"));
    look.textSize = QString::fromStdString(base::lookValue("VORN_TEXT_SIZE"));
    const std::string motion = base::lookValue("VORN_MOTION");
    look.moves = motion.empty() ? YDesktop::moves() : motion == "full";
    return look;
}

QString YEnvironment::themeFile()
{
    const std::string theme = base::lookValue("VORN_THEME");
    return isPath(theme) ? QString::fromStdString(theme) : QString();
}

QString YEnvironment::locale()
{
    const std::string chosen = base::lookValue("VORN_LANG");
    return chosen.empty() ? QLocale::system().name() : QString::fromStdString(chosen);
}

bool YEnvironment::hasKeypad()
{
    return base::lookValue("VORN_KEYPAD") == "1";
}

QSize YEnvironment::screenSize()
{
    int width = 240;
    int height = 320;
    base::readScreenSize(base::lookValue("VORN_SCREEN"), width, height);
    return QSize(width, height);
}

QString YEnvironment::body()
{
    return QString::fromStdString(base::lookValue("VORN_BODY"));
}
