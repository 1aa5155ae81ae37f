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
    return QRect(0, screen.height() - YTheme::current().softKeyHeight, screen.width(),
                 YTheme::current().softKeyHeight);
}

QRect YGlobal::getTitleR()
{
    return QRect(0, 0, screenR().width(), YTheme::current().titleHeight);
}

QRect YGlobal::getMainContentR()
{
    return screenR().adjusted(0, YTheme::current().titleHeight, 0,
                              -YTheme::current().softKeyHeight);
}

QRect YGlobal::getDlgSmallR()
{
    const QRect screen = screenR();
    const int height = 2 * YTheme::current().dialogIconTop + YTheme::current().dialogIcon +
                       YTheme::current().softKeyHeight;
    return QRect(0, screen.height() - height, screen.width(), height);
}

QRect YGlobal::getDlgSmallConR()
{
    return getDlgSmallR().adjusted(
        YTheme::current().margin, YTheme::current().dialogIconTop, -YTheme::current().margin,
        -YTheme::current().softKeyHeight - YTheme::current().dialogIconTop);
}

QRect YGlobal::getDlgLargeR()
{
    // A small screen has nothing to spare for the title of the page below.
    return screenR().adjusted(0, YTheme::current().small ? 0 : YTheme::current().titleHeight, 0, 0);
}

QRect YGlobal::getDlgLargeConR()
{
    return getDlgLargeR().adjusted(YTheme::current().margin, YTheme::current().titleHeight,
                                   -YTheme::current().margin, -YTheme::current().softKeyHeight);
}

QRect YGlobal::mapFromGlobalR(QWidget* widget, const QRect& rect)
{
    YScreen* screen = YScreen::instance();
    if (!screen->isAncestorOf(widget))
        return rect;
    return QRect(widget->mapFrom(screen, rect.topLeft()), rect.size());
}
