#include "toolkit/look/yeye.h"

#include <QKeyEvent>
#include <QPainter>
#include <QPainterPath>

#include "toolkit/look/ytheme.h"

namespace {

constexpr int eyeWidth = 30;

QPainterPath lids(const QPointF& middle)
{
    QPainterPath path;
    path.moveTo(middle - QPointF(8, 0));
    path.quadTo(middle - QPointF(0, 9), middle + QPointF(8, 0));
    path.quadTo(middle + QPointF(0, 9), middle - QPointF(8, 0));
    return path;
}

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

QRect YEye::placeIn(const QRect& box)
{
    QRect place = box;
    place.setLeft(place.right() + 1 - eyeWidth);
    return place;
}

void YEye::draw(QPainter& painter, const QRect& box) const
{
    const YTheme& theme = YTheme::current();
    const QRect place = placeIn(box);
    const QPointF middle = QRectF(place).center();
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    if (hasCursor) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(theme.accent);
        painter.drawRoundedRect(place.adjusted(3, 4, -4, -4), 4, 4);
    }
    const QColor colour = hasCursor ? theme.onAccent : theme.mutedText;
    painter.setPen(QPen(colour, 1.4));
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(lids(middle));
    painter.setBrush(colour);
    painter.drawEllipse(middle, 2.0, 2.0);
    if (!isOpen)
        painter.drawLine(middle + QPointF(-6, 6), middle + QPointF(6, -6));
    painter.restore();
}
