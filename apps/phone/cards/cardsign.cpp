#include "cards/cardsign.h"

#include <QPainter>

#include <toolkit/look/yicon.h>
#include <toolkit/look/ytheme.h>

#include "cards/card.h"

namespace phone {

namespace {

const char* iconOf(Sign sign)
{
    switch (sign) {
    case Sign::None:
        return "";
    case Sign::Cellular:
        return "cellular";
    case Sign::Wifi:
        return "wifi";
    case Sign::Call:
        return "call";
    case Sign::Warning:
        return "warning";
    case Sign::Folder:
        return "forward";
    case Sign::File:
        return "page";
    }
    return "";
}

} // namespace

void drawSign(QPainter& painter, const QRect& place, Sign sign)
{
    const YTheme& theme = YTheme::current();
    const QColor colour = sign == Sign::Warning ? theme.failure : theme.accent;
    QColor ground = colour;
    ground.setAlphaF(0.13F);
    painter.save();
    painter.setPen(Qt::NoPen);
    painter.setBrush(ground);
    painter.drawEllipse(place);
    const int inset = place.width() / 6;
    YIcon::draw(painter, QString::fromLatin1(iconOf(sign)),
                place.adjusted(inset, inset, -inset, -inset), colour);
    painter.restore();
}

} // namespace phone
