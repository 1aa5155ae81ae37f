#include "toolkit/look/ytheme.h"

#include <algorithm>

#include <QApplication>
#include <QLocale>
#include <QStringList>

#include "toolkit/look/ydress.h"
#include "toolkit/look/ytranslator.h"
#include "toolkit/yenvironment.h"

namespace {

const YTheme lightTheme = {
    YTheme::Scheme::Light,    QColor(0xF3, 0xF4, 0xF7),      QColor(0xFF, 0xFF, 0xFF),
    QColor(0xE6, 0xE9, 0xEE), QColor(0x1A, 0x1F, 0x26),      QColor(0x55, 0x60, 0x6D),
    QColor(0x7C, 0x85, 0x90), QColor(0x14, 0x5F, 0xC8),      QColor(0xFF, 0xFF, 0xFF),
    QColor(0xCF, 0xD5, 0xDC), QColor(0x85, 0x8E, 0x9B),      QColor(0x1E, 0x8E, 0x4B),
    QColor(0xC6, 0x2B, 0x2B), QColor(0x10, 0x16, 0x20, 130),
};

const YTheme darkTheme = {
    YTheme::Scheme::Dark,     QColor(0x12, 0x15, 0x19),      QColor(0x20, 0x25, 0x2C),
    QColor(0x2A, 0x30, 0x38), QColor(0xEC, 0xEF, 0xF3),      QColor(0xA9, 0xB3, 0xBE),
    QColor(0x77, 0x81, 0x8D), QColor(0x7A, 0xB2, 0xFF),      QColor(0x0A, 0x16, 0x28),
    QColor(0x3C, 0x44, 0x4E), QColor(0x69, 0x73, 0x7F),      QColor(0x5F, 0xCB, 0x8B),
    QColor(0xFF, 0x8A, 0x80), QColor(0x00, 0x00, 0x00, 160),
};

const YTheme& named(YTheme::Scheme scheme)
{
    return scheme == YTheme::Scheme::Dark ? darkTheme : lightTheme;
}

const YTheme* chosen = nullptr;

bool isChinese()
{
    static const bool chinese = QLocale(YTranslator::chosenLocale()).language() == QLocale::Chinese;
    return chinese;
}

// The face of the language's own letters comes first, so that a line is as high as they are. The
// Chinese face is named in either case: another one may give a letter its Japanese shape.
QStringList families()
{
    QStringList names = {QStringLiteral("Noto Sans"), QStringLiteral("DejaVu Sans")};
    names.insert(isChinese() ? 0 : names.size(), QStringLiteral("Noto Sans CJK SC"));
    return names;
}

QFont face(int pixels, QFont::Weight weight)
{
    QFont font;
    font.setFamilies(families());
    font.setPixelSize(pixels);
    font.setWeight(weight);
    return font;
}

} // namespace

const YTheme& YTheme::current()
{
    if (!chosen)
        chosen = &named(YEnvironment::isDark() ? Scheme::Dark : Scheme::Light);
    return *chosen;
}

void YTheme::use(Scheme scheme)
{
    chosen = &named(scheme);
    if (qobject_cast<QApplication*>(QCoreApplication::instance()))
        YDress::refresh();
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

bool YTheme::isSmall()
{
    static const QSize screen = YEnvironment::screenSize();
    return std::min(screen.width(), screen.height()) < 220;
}

int YTheme::softKeyHeight()
{
    return isSmall() ? 26 : 34;
}

int YTheme::titleHeight()
{
    return isSmall() ? 28 : 32;
}

int YTheme::rowHeight()
{
    return isSmall() ? 30 : 36;
}

QFont YTheme::bodyFont()
{
    return face(isSmall() ? 13 : 14, QFont::Normal);
}

QFont YTheme::titleFont()
{
    return face(isSmall() ? 14 : 15, QFont::DemiBold);
}

QFont YTheme::segmentFont()
{
    return face(isSmall() ? 12 : 14, QFont::Normal);
}

QFont YTheme::smallFont()
{
    // Chinese letters have too many strokes for eleven pixels.
    return face(isChinese() ? 12 : 11, QFont::Normal);
}
