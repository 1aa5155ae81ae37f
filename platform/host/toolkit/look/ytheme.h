// The look of the phone: colours, metrics and fonts, in one place.
#ifndef YTHEME_H
#define YTHEME_H

#include <QColor>
#include <QFont>
#include <QPalette>

#include "platform_export.h"

// All lengths are logical pixels.
struct VORN_PLATFORM_API YTheme
{
    enum class Scheme { Light, Dark };

    // The theme in use. Light, unless VORN_THEME says "dark".
    static const YTheme& current();
    // Changes the theme of all widgets of the toolkit, shown ones too.
    static void use(Scheme scheme);

    QPalette palette() const;

    Scheme scheme;

    QColor background; // of a page
    QColor surface;    // of popups, fields and rows
    QColor bar;        // of the title bar and the soft keys
    QColor text;
    QColor mutedText; // labels above fields, hints
    QColor disabledText;
    QColor accent; // focus, selection, checked marks
    QColor onAccent;
    QColor border;  // between the parts of a page, and of what is switched off
    QColor outline; // of fields and buttons
    QColor success;
    QColor failure;
    QColor shade; // over what lies below a modal popup; translucent

    static constexpr int margin = 8;
    static constexpr int iconSize = 50;
    static constexpr int iconTop = 11;
    static constexpr int radius = 10;
    static constexpr int focusWidth = 2;
    static constexpr int indicatorWidth = 4; // of what shows how far a list is scrolled

    // A screen of less than 220 pixels a side has smaller letters and less room around them.
    static bool isSmall();
    static int softKeyHeight();
    static int titleHeight();
    static int rowHeight();

    static QFont bodyFont();
    static QFont titleFont();
    static QFont smallFont();
    static QFont segmentFont(); // of a field that shares its row with others
};

#endif
