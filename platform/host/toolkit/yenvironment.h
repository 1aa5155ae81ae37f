// What the environment says of the screen. A value without a meaning is told once, on standard
// error, when the program starts, and counts as unset.
#ifndef YENVIRONMENT_H
#define YENVIRONMENT_H

#include <QSize>
#include <QString>

#include "toolkit/ylook.h"

struct YEnvironment
{
    static YLook look();        // VORN_THEME, VORN_ACCENT, VORN_TEXT_SIZE, VORN_MOTION
    static QString themeFile(); // the path that VORN_THEME names, or ""
    static QString locale();    // VORN_LANG, else the system's: "de_DE", for instance
    static bool hasKeypad();    // VORN_KEYPAD
    static QSize screenSize();  // VORN_SCREEN, in logical pixels
    static QString body();      // VORN_BODY: "desk", "screen", "web", or "" for none
};

#endif
