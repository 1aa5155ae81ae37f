// The look of the phone as it is now: colours, lengths, letters and durations, in one place.
#ifndef YTHEME_H
#define YTHEME_H

#include <QColor>
#include <QFont>
#include <QPalette>
#include <QSize>

#include "platform_export.h"

class YThemeFile;
struct YLook;

// All lengths are logical pixels, all durations milliseconds; each has its value from the theme
// file
// (`ythemefile.h`), for the screen's size and the text size that is chosen.
struct VORN_PLATFORM_API YTheme
{
    enum class Scheme { Light, Dark };

    // The theme in use: what YLook says.
    static const YTheme& current();
    // Changes the scheme of all widgets of the toolkit, shown ones too.
    static void use(Scheme scheme);
    // What a file gives for a look and a screen.
    static YTheme made(const YThemeFile& file, const YLook& look, const QSize& screen);
    // Another number for each theme that current() has given, so that what was measured with one is
    // measured again with the next.
    static int generation();

    QPalette palette() const;

    const QFont& bodyFont() const { return m_body; }
    const QFont& titleFont() const { return m_title; }
    const QFont& smallFont() const { return m_small; }
    // Of a field that shares its row with others.
    const QFont& segmentFont() const { return m_segment; }

    Scheme scheme = Scheme::Light;
    bool small = false; // the screen has no room to spare
    bool moves = false; // what explains itself by moving does so

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
    QColor warning;
    QColor shade; // over what lies below a modal popup; translucent

    // Heights of letters.
    int body = 0;
    int title = 0;
    int smallLetters = 0;
    int smallIdeographs = 0; // have too many strokes for the usual small letters
    int segmentLetters = 0;
    int smallestTitle = 0; // of a title in one line
    int twoLineTitle = 0;
    int smallestKey = 0; // of a soft key's text

    int softKeyHeight = 0;
    int titleHeight = 0;
    int rowHeight = 0;
    int boxHeight = 0; // of a field's or a button's box of one line

    int icon = 0;
    int mark = 0;  // the ring of a choice
    int check = 0; // the tick of a menu's item
    int sign = 0;  // of a notice
    int arrow = 0;
    int eye = 0; // the room for it
    int busy = 0;
    int busyLine = 0;
    int dialogIcon = 0;
    int segment = 0; // the usual width of a segment
    int field = 0;   // and of a field by itself

    int margin = 0; // between the screen's edge and what it shows
    int dialogIconTop = 0;
    int rowGap = 0; // above and below a form's row
    int labelGap = 0;
    int boxInset = 0;   // between a box and its text, sideways
    int segmentGap = 0; // beside a separator
    int headerLine = 0; // above and below a line of a popup's header, of a list, a menu, a button
    int listLine = 0;
    int menuLine = 0;
    int buttonLine = 0;
    int buttonSide = 0;
    int menuEdge = 0; // between a menu's edge and its rows
    int aboveSeparator = 0;
    int belowSeparator = 0;
    int focus = 0; // the line around what has the focus
    int line = 0;
    int indicator = 0; // the width of what shows how far a list is scrolled
    int shortestIndicator = 0;
    int slide = 0; // how far a sheet comes
    int scrollStep = 0;

    int popupRadius = 0;
    int boxRadius = 0;
    int buttonRadius = 0;
    int selectionRadius = 0;

    int slideTime = 0;
    int pressTime = 0; // that a key is seen to be pressed
    int turnTime = 0;  // of the ring of what is under way
    int noticeTime = 0;
    int lastLetterTime = 0; // that the last letter of a password is seen

private:
    QFont m_body;
    QFont m_title;
    QFont m_small;
    QFont m_segment;
};

#endif
