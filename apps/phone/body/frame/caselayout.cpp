#include "caselayout.h"

#include <algorithm>

#include "phonekeys.h"

namespace phone {

namespace {

constexpr double around = 10; // between the case and the edge of the window
constexpr double side = 14;   // between the glass and the edge of the case
constexpr double above = 30;
constexpr double below = 22;
constexpr double bezel = 10; // between the display and the edge of the glass
constexpr double gap = 16;   // between the glass and the keys
constexpr QSizeF earSize(54, 5);

QSizeF glassSize(const QSizeF& display)
{
    return display + QSizeF(2 * bezel, 2 * bezel);
}

QSizeF bodySize(const QSizeF& display, CaseLayout::Keys keys)
{
    const QSizeF glass = glassSize(display);
    const QSizeF field(keyFieldWidth, keyFieldHeight);
    if (keys == CaseLayout::Keys::Below)
        return {std::max(glass.width(), field.width()) + 2 * side,
                above + glass.height() + gap + field.height() + below};
    return {glass.width() + gap + field.width() + 2 * side,
            above + std::max(glass.height(), field.height()) + below};
}

QRectF scaled(const QRectF& rect, double scale, const QPointF& origin)
{
    return {origin + rect.topLeft() * scale, rect.size() * scale};
}

} // namespace

QSize CaseLayout::usualSize(const QSize& display, Keys keys)
{
    const QSizeF size = bodySize(display, keys) + QSizeF(2 * around, 2 * around);
    return {qRound(size.width()), qRound(size.height())};
}

CaseLayout CaseLayout::in(const QSize& window, const QSize& display, Keys keys)
{
    const QSize usual = usualSize(display, keys);
    CaseLayout layout;
    layout.scale =
        std::min(double(window.width()) / usual.width(), double(window.height()) / usual.height());
    const QSizeF size = bodySize(display, keys);
    const QPointF origin((window.width() - size.width() * layout.scale) / 2,
                         (window.height() - size.height() * layout.scale) / 2);
    const QSizeF glass = glassSize(display);
    const double inner = size.width() - 2 * side;
    const double room = size.height() - above - below;
    const bool isBelow = keys == Keys::Below;
    const QRectF glassR(isBelow ? side + (inner - glass.width()) / 2 : side,
                        isBelow ? above : above + (room - glass.height()) / 2, glass.width(),
                        glass.height());
    const QPointF fieldAt(isBelow ? side + (inner - keyFieldWidth) / 2 : glassR.right() + gap,
                          isBelow ? glassR.bottom() + gap : above + (room - keyFieldHeight) / 2);
    const QPointF earAt(glassR.center().x() - earSize.width() / 2, glassR.top() - 18);
    layout.body = scaled(QRectF(QPointF(), size), layout.scale, origin);
    layout.ear = scaled(QRectF(earAt, earSize), layout.scale, origin);
    layout.glass = scaled(glassR, layout.scale, origin);
    layout.field = scaled({fieldAt, QSizeF(keyFieldWidth, keyFieldHeight)}, layout.scale, origin);
    layout.display =
        scaled(glassR.adjusted(bezel, bezel, -bezel, -bezel), layout.scale, origin).toRect();
    return layout;
}

QRectF CaseLayout::onField(const QRectF& place) const
{
    return scaled(place, scale, field.topLeft());
}

} // namespace phone
