#include "toolkit/look/yeye.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyle>

#include "toolkit/look/yicon.h"
#include "toolkit/look/ytheme.h"

namespace {

constexpr int groundEdge = 3; // between the box and the eye's ground

} // namespace

YEye::Taken YEye::take(const QKeyEvent& event, bool behindText) const
{
    const int key = event.key();
    if (!hasCursor) {
        const bool enters =
            key == Qt::Key_Right && event.modifiers() == Qt::NoModifier && behindText;
        return {enters, false, enters};
    }
    const bool stays = isReturn(key) || key == Qt::Key_Right;
    return {stays || key == Qt::Key_Left, isReturn(key) && !event.isAutoRepeat(), stays};
}

bool YEye::isReturn(int key)
{
    return key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Select;
}

QRect YEye::placeIn(const QRect& box, Qt::LayoutDirection direction)
{
    QRect place = box;
    place.setLeft(place.right() + 1 - YTheme::current().eye);
    return QStyle::visualRect(direction, box, place);
}

void YEye::draw(QPainter& painter, const QRect& box) const
{
    const YTheme& theme = YTheme::current();
    const QRect place = placeIn(box, painter.layoutDirection());
    if (hasCursor) {
        const double radius = theme.boxRadius - groundEdge;
        painter.save();
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(theme.accent);
        painter.drawRoundedRect(place.adjusted(groundEdge, groundEdge, -groundEdge, -groundEdge),
                                radius, radius);
        painter.restore();
    }
    const int around = (place.width() - theme.mark) / 2;
    YIcon::draw(painter, isOpen ? QStringLiteral("eye") : QStringLiteral("eye-off"),
                place.adjusted(around, 0, -around, 0),
                hasCursor ? theme.onAccent : theme.mutedText);
}
