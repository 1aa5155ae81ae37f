#include "toolkit/look/ytheme.h"

#include <algorithm>

#include "toolkit/theme/ychoice.h"
#include "toolkit/theme/yfaces.h"
#include "toolkit/theme/ythemefile.h"
#include "toolkit/theme/ythemevalues.h"
#include "toolkit/ylook.h"

namespace {

QFont face(int pixels, QFont::Weight weight)
{
    QFont font;
    font.setFamilies(YFaces::families());
    font.setPixelSize(pixels);
    font.setWeight(weight);
    return font;
}

// "screens.small." for a screen of less than its smallest side, "screens.large." for one from there
// on, else "".
QString kindOf(const YThemeFile& file, const QSize& screen)
{
    const int side = std::min(screen.width(), screen.height());
    if (side < file.number(QStringLiteral("screens.small.below")))
        return QStringLiteral("screens.small.");
    if (side >= file.number(QStringLiteral("screens.large.from")))
        return QStringLiteral("screens.large.");
    return QString();
}

bool grows(const QString& path)
{
    return path.startsWith(QLatin1String("letters.")) ||
           path.startsWith(QLatin1String("heights.")) || path.startsWith(QLatin1String("sizes."));
}

void takeNumbers(YTheme& theme, const YThemeFile& file, const QString& kind, int percent)
{
    for (const YThemeNumber& value : themeNumbers) {
        const QString path = QLatin1String(value.path);
        const QString own = kind + path;
        const int number = file.number(file.has(own) ? own : path);
        theme.*value.member = grows(path) ? (number * percent + 50) / 100 : number;
    }
}

void takeColours(YTheme& theme, const YThemeFile& file, const QString& accent)
{
    const QString scheme = QLatin1String(theme.scheme == YTheme::Scheme::Dark ? "dark" : "light");
    for (const YThemeColour& value : themeColours)
        theme.*value.member =
            file.colour(QStringLiteral("colours.%1.%2").arg(scheme, QLatin1String(value.name)));
    const QString path = QStringLiteral("accents.%1.%2.").arg(accent, scheme);
    theme.accent = file.colour(path + QStringLiteral("accent"));
    theme.onAccent = file.colour(path + QStringLiteral("onAccent"));
}

} // namespace

const YTheme& YTheme::current()
{
    return YChoice::theme();
}

void YTheme::use(Scheme scheme)
{
    YLook look = YLook::current();
    look.theme = QLatin1String(scheme == Scheme::Dark ? "dark" : "light");
    YLook::use(look);
}

int YTheme::generation()
{
    return YChoice::generation();
}

YTheme YTheme::made(const YThemeFile& file, const YLook& look, const QSize& screen)
{
    YTheme theme;
    const QString kind = kindOf(file, screen);
    const QString size = QStringLiteral("textSizes.") + look.textSize;
    theme.scheme = look.theme == QLatin1String("dark") ? Scheme::Dark : Scheme::Light;
    theme.small = kind.contains(QLatin1String("small"));
    theme.moves = look.moves;
    takeNumbers(theme, file, kind, file.has(size) ? file.number(size) : 100);
    takeColours(theme, file,
                file.namesIn(QStringLiteral("accents")).contains(look.accent)
                    ? look.accent
                    : file.namesIn(QStringLiteral("accents")).value(0));
    theme.m_body = face(theme.body, QFont::Normal);
    theme.m_title = face(theme.title, QFont::DemiBold);
    theme.m_small =
        face(YFaces::areIdeographs() ? theme.smallIdeographs : theme.smallLetters, QFont::Normal);
    theme.m_segment = face(theme.segmentLetters, QFont::Normal);
    return theme;
}

QPalette YTheme::palette() const
{
    QPalette colours(bar, background);
    colours.setColor(QPalette::Base, surface);
    colours.setColor(QPalette::AlternateBase, background);
    colours.setColor(QPalette::Button, bar);
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::BrightText}) {
        colours.setColor(role, text);
        colours.setColor(QPalette::Disabled, role, disabledText);
    }
    colours.setColor(QPalette::Highlight, accent);
    colours.setColor(QPalette::HighlightedText, onAccent);
    colours.setColor(QPalette::PlaceholderText, mutedText);
    colours.setColor(QPalette::Mid, border);
    colours.setColor(QPalette::Link, accent);
    return colours;
}
