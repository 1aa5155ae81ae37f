#include "cards/cardsign.h"

#include <QPainter>
#include <QPainterPath>

#include <toolkit/look/ytheme.h>

#include "cards/card.h"

namespace phone {

namespace {

// The signs are drawn on a square of 24 units.
constexpr double grid = 24;

void drawCellular(QPainter& painter)
{
    painter.setBrush(painter.pen().color());
    painter.setPen(Qt::NoPen);
    for (int bar = 0; bar < 4; ++bar) {
        const double height = 4 + 3.3 * bar;
        painter.drawRoundedRect(QRectF(4.5 + 4 * bar, 19 - height, 2.8, height), 1, 1);
    }
}

void drawWifi(QPainter& painter)
{
    for (const double radius : {5.0, 9.0, 13.0})
        painter.drawArc(QRectF(12 - radius, 18 - radius, 2 * radius, 2 * radius), 48 * 16, 84 * 16);
    painter.setBrush(painter.pen().color());
    painter.setPen(Qt::NoPen);
    painter.drawEllipse(QPointF(12, 18), 1.7, 1.7);
}

void drawCall(QPainter& painter)
{
    QPainterPath handset(QPointF(6, 5));
    handset.cubicTo(5, 13, 11, 19, 19, 18);
    QPen pen = painter.pen();
    pen.setWidthF(3.2);
    painter.setPen(pen);
    painter.drawPath(handset);
    pen.setWidthF(4.4);
    painter.setPen(pen);
    painter.drawLine(QPointF(6, 5), QPointF(7.4, 7.6));
    painter.drawLine(QPointF(19, 18), QPointF(16.4, 16.6));
}

void drawWarning(QPainter& painter)
{
    painter.drawPolygon(QPolygonF({{12, 4.5}, {20.5, 19}, {3.5, 19}}));
    painter.drawLine(QPointF(12, 10), QPointF(12, 13.6));
    painter.drawPoint(QPointF(12, 16.4));
}

void drawFolder(QPainter& painter)
{
    painter.drawPolygon(QPolygonF({{4, 6}, {10, 6}, {12, 8.5}, {20, 8.5}, {20, 18.5}, {4, 18.5}}));
}

void drawFile(QPainter& painter)
{
    painter.drawPolygon(QPolygonF({{6.5, 4}, {14, 4}, {17.5, 7.5}, {17.5, 20}, {6.5, 20}}));
    painter.drawLine(QPointF(9.5, 12), QPointF(14.5, 12));
    painter.drawLine(QPointF(9.5, 15.5), QPointF(14.5, 15.5));
}

void drawShape(QPainter& painter, Sign sign)
{
    switch (sign) {
    case Sign::None:
        return;
    case Sign::Cellular:
        return drawCellular(painter);
    case Sign::Wifi:
        return drawWifi(painter);
    case Sign::Call:
        return drawCall(painter);
    case Sign::Warning:
        return drawWarning(painter);
    case Sign::Folder:
        return drawFolder(painter);
    case Sign::File:
        return drawFile(painter);
    }
}

} // namespace

void drawSign(QPainter& painter, const QRect& place, Sign sign, bool isCurrent)
{
    const YTheme& theme = YTheme::current();
    const QColor colour = isCurrent               ? theme.onAccent
                          : sign == Sign::Warning ? theme.failure
                                                  : theme.accent;
    QColor ground = colour;
    ground.setAlphaF(0.13F);
    painter.save();
    painter.setPen(Qt::NoPen);
    painter.setBrush(ground);
    painter.drawEllipse(place);
    const double size = place.width() * 0.64;
    painter.translate(QRectF(place).center() - QPointF(size, size) / 2);
    painter.scale(size / grid, size / grid);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(colour, 2.2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    drawShape(painter, sign);
    painter.restore();
}

} // namespace phone
