#include "toolkit/theme/ychoice.h"

#include <algorithm>
#include <cstdio>
#include <memory>
#include <string>

#include <QApplication>
#include <QFile>

#include "base/root.h"
#include "toolkit/look/ydress.h"
#include "toolkit/look/ytheme.h"
#include "toolkit/theme/ydesktop.h"
#include "toolkit/theme/ythemefile.h"
#include "toolkit/yenvironment.h"

namespace {

void takeFile(YThemeFile& file, const QString& path)
{
    for (const QString& line : file.takeFile(path))
        std::fprintf(stderr, "theme %s: %s\n", qPrintable(path), qPrintable(line));
}

// The theme that is compiled in, with what the phone's own file changes, or the one that the
// environment names.
YThemeFile readFile()
{
    YThemeFile file = YThemeFile::standard();
    const QString named = YEnvironment::themeFile();
    const std::string root = base::rootFolder();
    const QString ofPhone = QString::fromStdString(root) + QStringLiteral("/etc/theme.json");
    if (!named.isEmpty())
        takeFile(file, named);
    else if (!root.empty() && QFile::exists(ofPhone))
        takeFile(file, ofPhone);
    return file;
}

struct State
{
    YThemeFile file = readFile();
    YLook look;
    QSize screen = YEnvironment::screenSize();
    std::unique_ptr<YTheme> theme;
    int generation = 0;

    State() : look(YEnvironment::look()) { make(); }

    void make()
    {
        YLook shown = look;
        if (look.theme == QLatin1String("system"))
            shown.theme = QLatin1String(YDesktop::isDark() ? "dark" : "light");
        auto made = std::make_unique<YTheme>(YTheme::made(file, shown, screen));
        if (theme)
            *theme = *made;
        else
            theme = std::move(made);
        ++generation;
    }
};

// Read when it is asked for first; it lasts as long as the process, as what it says does.
State& state()
{
    static State made;
    return made;
}

QString known(const QString& word, const QStringList& words)
{
    return words.contains(word) ? word : QString();
}

} // namespace

const YTheme& YChoice::theme()
{
    return *state().theme;
}

int YChoice::generation()
{
    return state().generation;
}

const YLook& YChoice::look()
{
    return state().look;
}

void YChoice::setLook(const YLook& look)
{
    YLook& own = state().look;
    own = {known(look.theme, YLook::themes()), known(look.accent, YLook::accents()),
           known(look.textSize, YLook::textSizes()), look.moves};
    if (own.theme.isEmpty())
        own.theme = YLook::themes().first();
    remake();
}

void YChoice::setScreen(const QSize& size)
{
    if (size == state().screen)
        return;
    state().screen = size;
    const int row = theme().rowHeight;
    const int margin = theme().margin;
    state().make();
    if (row != theme().rowHeight || margin != theme().margin)
        YDress::refresh();
}

void YChoice::remake()
{
    state().make();
    if (qobject_cast<QApplication*>(QCoreApplication::instance()))
        YDress::refresh();
}

QStringList YChoice::accents()
{
    return state().file.namesIn(QStringLiteral("accents"));
}

// From the smallest to the largest.
QStringList YChoice::textSizes()
{
    const YThemeFile& file = state().file;
    QStringList names = file.namesIn(QStringLiteral("textSizes"));
    std::sort(names.begin(), names.end(), [&file](const QString& one, const QString& two) {
        return file.number(QStringLiteral("textSizes.") + one) <
               file.number(QStringLiteral("textSizes.") + two);
    });
    return names;
}
