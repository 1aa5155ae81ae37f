#include <yglobal.h>

#include "toolkit/look/ytheme.h"
#include "yscreen.h"

namespace {

QRect screenR()
{
    return YScreen::instance()->rect();
}

} // namespace

QRect YGlobal::getHomeR(bool /*withStatusArea*/)
{
    return screenR();
}

QRect YGlobal::getCstR()
{
    const QRect screen = screenR();
    return QRect(0, screen.height() - YTheme::softKeyHeight(), screen.width(),
                 YTheme::softKeyHeight());
}

QRect YGlobal::getTitleR()
{
    return QRect(0, 0, screenR().width(), YTheme::titleHeight());
}

QRect YGlobal::getMainContentR()
{
    return screenR().adjusted(0, YTheme::titleHeight(), 0, -YTheme::softKeyHeight());
}

QRect YGlobal::getDlgSmallR()
{
    const QRect screen = screenR();
    const int height = 2 * YTheme::iconTop + YTheme::iconSize + YTheme::softKeyHeight();
    return QRect(0, screen.height() - height, screen.width(), height);
}

QRect YGlobal::getDlgSmallConR()
{
    return getDlgSmallR().adjusted(YTheme::margin, YTheme::iconTop, -YTheme::margin,
                                   -YTheme::softKeyHeight() - YTheme::iconTop);
}

QRect YGlobal::getDlgLargeR()
{
    // A small screen has nothing to spare for the title of the page below.
    return screenR().adjusted(0, YTheme::isSmall() ? 0 : YTheme::titleHeight(), 0, 0);
}

QRect YGlobal::getDlgLargeConR()
{
    return getDlgLargeR().adjusted(YTheme::margin, YTheme::titleHeight(), -YTheme::margin,
                                   -YTheme::softKeyHeight());
}

QRect YGlobal::mapFromGlobalR(QWidget* widget, const QRect& rect)
{
    YScreen* screen = YScreen::instance();
    if (!screen->isAncestorOf(widget))
        return rect;
    return QRect(widget->mapFrom(screen, rect.topLeft()), rect.size());
}
