// What the desktop around the phone's screen wants.
#ifndef YDESKTOP_H
#define YDESKTOP_H

struct YDesktop
{
    // Whether the desktop is dark, as its settings portal says on the session bus, else its palette
    // when it was asked for first. From then on a change of the portal's answer makes the theme
    // anew.
    static bool isDark();
    // False where the desktop wants no motion, as far as it tells Qt.
    static bool moves();
};

#endif
