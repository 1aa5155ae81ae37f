#include "toolkit/list/ylistdelegate.h"

#include <algorithm>

#include <QAbstractItemView>
#include <QPainter>

#include "toolkit/list/ylistitemdata.h"
#include "toolkit/list/ylistmodel.h"
#include "toolkit/look/ytheme.h"
#include "toolkit/look/ywrap.h"

namespace {

constexpr int markSize = 16;
constexpr int gap = YTheme::margin;

// Above and below the text of a row.
int linePadding()
{
    return YTheme::isSmall() ? 6 : 9;
}

// How the two texts of a sub-item share their width.
struct Split
{
    int first;
    int second;
};

Split split(const YListSubItem& subItem, const QFontMetrics& metrics, int width)
{
    if (subItem.second.isEmpty())
        return {width, 0};
    // A pixel more than the sum of the letters, which is rounded: a text that fits is not to be
    // cut.
    const int first = metrics.horizontalAdvance(subItem.first) + 1;
    const int second = metrics.horizontalAdvance(subItem.second) + 1;
    if (first + gap + second <= width)
        return {width - second - gap, second};
    const int room = width - gap;
    switch (subItem.priority) {
    case YListBoxItem::ShowFirst:
        return {std::min(first, room), std::max(0, room - first)};
    case YListBoxItem::ShowSecond:
        return {std::max(0, room - second), std::min(second, room)};
    case YListBoxItem::ShowEvenly:
        break;
    }
    const int share = room * static_cast<int>(subItem.share) / 100;
    return {share, room - share};
}

void paintMark(QPainter& painter, const QRect& place, bool checked, const QColor& colour)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF ring = QRectF(place).adjusted(1, 1, -1, -1);
    painter.setPen(QPen(colour, 1.6));
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(ring);
    if (checked) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(colour);
        painter.drawEllipse(ring.adjusted(3.6, 3.6, -3.6, -3.6));
    }
    painter.restore();
}

// The room that a picture takes from the text beside it.
int pictureWidth(const YListSubItem& subItem)
{
    return subItem.picture.isNull()
               ? 0
               : static_cast<int>(subItem.picture.deviceIndependentSize().width()) + gap;
}

void paintSubItem(QPainter& painter, const YListSubItem& subItem, const YRowFont& font, QRect place)
{
    if (!subItem.picture.isNull()) {
        const QSizeF size = subItem.picture.deviceIndependentSize();
        painter.drawPixmap(QPointF(place.left(), place.center().y() - size.height() / 2),
                           subItem.picture);
        place.setLeft(place.left() + pictureWidth(subItem));
    }
    painter.setFont(font.font());
    const QFontMetrics& metrics = font.metrics();
    const Split widths = split(subItem, metrics, place.width());
    if (subItem.second.isEmpty()) {
        YWrap::draw(painter, place, Qt::AlignLeft | Qt::AlignVCenter, subItem.first);
        return;
    }
    QRect left = place;
    left.setWidth(widths.first);
    painter.drawText(left, Qt::AlignVCenter | Qt::AlignLeft,
                     metrics.elidedText(subItem.first, Qt::ElideRight, widths.first));
    QRect right = place;
    right.setLeft(place.right() + 1 - widths.second);
    painter.drawText(right, Qt::AlignVCenter | Qt::AlignRight,
                     metrics.elidedText(subItem.second, Qt::ElideRight, widths.second));
}

// Where a row's mark and texts are, beside the room of the indicator.
QRect placeIn(const QStyleOptionViewItem& option)
{
    QRect place = option.rect;
    place.setWidth(option.widget ? option.widget->width() - YTheme::indicatorWidth : place.width());
    return place.adjusted(gap, 0, -gap, 0);
}

// The mark's place at the left edge of a row's.
QRect markIn(const QRect& place)
{
    return QRect(place.left(), place.top() + (place.height() - markSize) / 2, markSize, markSize);
}

} // namespace

YListDelegate::YListDelegate(QObject* parent, const YListModel& rows)
    : QStyledItemDelegate(parent), m_model(rows), m_plainFont(false), m_strongFont(true)
{}

void YListDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const
{
    const YListBoxItem* item = m_model.item(index.row());
    if (!item)
        return;
    const YTheme& theme = YTheme::current();
    const bool current = option.state & QStyle::State_Selected;
    const bool enabled = option.state & QStyle::State_Enabled;
    painter->save();
    if (current)
        painter->fillRect(option.rect, theme.accent);
    painter->setPen(current ? theme.onAccent : enabled ? theme.text : theme.disabledText);

    QRect place = placeIn(option);
    if (hasMark(index.row())) {
        const QRect mark = markIn(place);
        paintMark(*painter, mark, item == m_model.checked(), painter->pen().color());
        place.setLeft(mark.right() + 1 + gap);
    }
    paintSubItems(*painter, *item, place);
    painter->restore();
}

void YListDelegate::paintSubItems(QPainter& painter, const YListBoxItem& item, QRect place) const
{
    const auto& subItems = item.d->subItems;
    if (!subItems.empty())
        place.setWidth(place.width() / static_cast<int>(subItems.size()));
    for (const auto& [number, subItem] : subItems) {
        paintSubItem(painter, subItem, fontOf(subItem), place);
        place.translate(place.width(), 0);
    }
}

QSize YListDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const auto* view = qobject_cast<const QAbstractItemView*>(option.widget);
    const int width = view ? view->width() : option.rect.width();
    return QSize(width - YTheme::indicatorWidth, height(index.row(), width));
}

int YListDelegate::height(int row, int width) const
{
    const YListBoxItem* item = m_model.item(row);
    if (!item || item->d->subItems.empty())
        return YTheme::rowHeight();
    const auto& subItems = item->d->subItems;
    // The scroll indicator's place stays free, so that rows do not change when it comes.
    int room = width - 2 * gap - YTheme::indicatorWidth - (hasMark(row) ? markSize + gap : 0);
    room /= static_cast<int>(subItems.size());
    int height = YTheme::rowHeight();
    for (const auto& [number, subItem] : subItems) {
        if (!subItem.second.isEmpty())
            continue;
        const YRowFont& font = fontOf(subItem);
        const int rest = room - pictureWidth(subItem);
        if (!font.fits(subItem.first, rest))
            height = std::max(height, font.wrappedHeight(subItem.first, rest) + 2 * linePadding());
    }
    return height;
}

const YRowFont& YListDelegate::fontOf(const YListSubItem& subItem) const
{
    return subItem.strong ? m_strongFont : m_plainFont;
}

bool YListDelegate::hasMark(int row) const
{
    const QString own = m_model.item(row)->type();
    return (own.isNull() ? listType : own).contains(QStringLiteral("%R"));
}
