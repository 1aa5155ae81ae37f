// How the phone looks and which language it speaks, as its user chooses.
#ifndef YLOOK_H
#define YLOOK_H

#include <QString>
#include <QStringList>

#include "platform_export.h"

// Until a program says otherwise, a look is what the environment says (VORN_THEME, VORN_ACCENT,
// VORN_TEXT_SIZE, VORN_MOTION), and what that leaves open is the first of each list. GUI thread
// only.
struct VORN_PLATFORM_API YLook
{
    QString theme;      // one of themes(); "system" follows the desktop
    QString accent;     // one of accents(), or "" for the first
    QString textSize;   // one of textSizes(), or "" for the usual
    bool moves = false; // sheets slide, keys answer; false: reduced motion

    static YLook current();
    // Changes everything that is shown, at once. A word that is on no list counts as "". The choice
    // lasts as long as the process: who wants to keep it stores the words and calls this again.
    static void use(const YLook& look);

    // The words, in the order in which a settings page shows them; the text that a user reads is
    // the page's own.
    static QStringList themes();    // "light", "dark", "system"
    static QStringList accents();   // "blue", "plum", "teal", and what a theme file adds
    static QStringList textSizes(); // "small", "normal", "large", "largest"

    // The language of the texts: one of languages(), "" for a language that has no catalogue.
    static QString language();
    // Takes the texts, and the direction in which they are read, of another language; "" is the
    // environment's (VORN_LANG, else the system's). A widget keeps the texts that it was given: a
    // page that is open is made anew, or gets them again on QEvent::LanguageChange.
    static void useLanguage(const QString& language);
    // "en", "de", "zh_CN", "zh_TW", "es", "pt", "fr", "ru", "ja", "ar".
    static QStringList languages();
    // What its speakers call a language: "Deutsch" for "de".
    static QString nameOf(const QString& language);
};

#endif
