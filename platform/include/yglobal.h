// The rectangles of the phone's screen.
#ifndef YGLOBAL_H
#define YGLOBAL_H

#include <qrect.h>

#include "platform_export.h"

class QWidget;

// All rectangles are in logical pixels of the phone's screen, whose top-left corner is (0, 0); they
// follow the screen's real size, so nothing may be taken for 240 by 320. GUI thread only; a
// QApplication must exist.
class VORN_PLATFORM_API YGlobal
{
public:
    // The whole screen. The argument asks for the part below the status area when false; the host's
    // screen has none, so both are the same.
    static QRect getHomeR(bool withStatusArea);
    // The soft-key bar at the bottom.
    static QRect getCstR();
    // The title bar at the top.
    static QRect getTitleR();
    // What a page has between its title bar and its soft-key bar.
    static QRect getMainContentR();

    // A small dialog: an icon of 50 by 50 pixels with a text beside it, above its own soft-key bar.
    static QRect getDlgSmallR();
    // The part of a small dialog that the icon and the text share.
    static QRect getDlgSmallConR();
    // A large dialog: it leaves the title bar of the page below in sight.
    static QRect getDlgLargeR();
    // The part of a large dialog between its title and its soft-key bar.
    static QRect getDlgLargeConR();

    // The rectangle, given in pixels of the screen, in the coordinates of `widget`, which must be
    // in the screen.
    static QRect mapFromGlobalR(QWidget* widget, const QRect& rect);
};

#endif
