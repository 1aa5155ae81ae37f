#include "toolkit/list/ylistdelegate.h"

#include <algorithm>

#include <QAbstractItemView>
#include <QPainter>

#include "toolkit/list/ylistitemdata.h"
#include "toolkit/list/ylistmodel.h"
#include "toolkit/look/yrowlook.h"
#include "toolkit/look/ytheme.h"
#include "toolkit/look/ywrap.h"

namespace {

// Between the parts of a row.
int gap()
{
    return YTheme::current().margin;
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
    if (first + gap() + second <= width)
        return {width - second - gap(), second};
    const int room = width - gap();
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
        const double gap = ring.width() / 4;
        painter.drawEllipse(ring.adjusted(gap, gap, -gap, -gap));
    }
    painter.restore();
}

// The room that a picture takes from the text beside it.
int pictureWidth(const YListSubItem& subItem)
{
    return subItem.picture.isNull()
               ? 0
               : static_cast<int>(subItem.picture.deviceIndependentSize().width()) + gap();
}

// Places are those of a row that is read from left to right; in another one all is mirrored.
QRect onItsSide(const QPainter& painter, const QRect& row, const QRect& place)
{
    return QStyle::visualRect(painter.layoutDirection(), row, place);
}

void paintPicture(QPainter& painter, const QRect& row, const QRect& place, const QPixmap& picture)
{
    const QSize size = picture.deviceIndependentSize().toSize();
    const QRect here(QPoint(place.left(), place.center().y() - size.height() / 2), size);
    painter.drawPixmap(onItsSide(painter, row, here).topLeft(), picture);
}

// What has no room ends in dots.
void drawOneLine(QPainter& painter, const QRect& place, Qt::Alignment side, const QString& text)
{
    painter.drawText(place, YWrap::flags(painter, side | Qt::AlignVCenter, text),
                     painter.fontMetrics().elidedText(text, Qt::ElideRight, place.width()));
}

void paintSubItem(QPainter& painter, const QRect& row, const YListSubItem& subItem,
                  const YRowFont& font, QRect place)
{
    if (!subItem.picture.isNull()) {
        paintPicture(painter, row, place, subItem.picture);
        place.setLeft(place.left() + pictureWidth(subItem));
    }
    painter.setFont(font.font());
    const QFontMetrics& metrics = font.metrics();
    const Split widths = split(subItem, metrics, place.width());
    if (subItem.second.isEmpty()) {
        YWrap::draw(painter, onItsSide(painter, row, place), Qt::AlignLeft | Qt::AlignVCenter,
                    subItem.first);
        return;
    }
    QRect left = place;
    left.setWidth(widths.first);
    drawOneLine(painter, onItsSide(painter, row, left), Qt::AlignLeft, subItem.first);
    QRect right = place;
    right.setLeft(place.right() + 1 - widths.second);
    drawOneLine(painter, onItsSide(painter, row, right), Qt::AlignRight, subItem.second);
}

// A row is as wide as the view but for the room of the indicator, which stands at the row's end,
// whether it is there or not.
QRect rowIn(const QStyleOptionViewItem& option)
{
    QRect row = option.rect;
    const auto* view = qobject_cast<const QAbstractItemView*>(option.widget);
    if (!view)
        return row;
    const int width = view->width() - YTheme::current().indicator;
    row.setLeft(option.direction == Qt::RightToLeft ? view->viewport()->width() - width : 0);
    row.setWidth(width);
    return row;
}

// Where a row's mark and texts are.
QRect placeIn(const QStyleOptionViewItem& option)
{
    return rowIn(option).adjusted(gap(), 0, -gap(), 0);
}

// The mark's place at the left edge of a row's.
QRect markIn(const QRect& place)
{
    const int mark = YTheme::current().mark;
    return QRect(place.left(), place.top() + (place.height() - mark) / 2, mark, mark);
}

// The row's ground, and the pen for what is written on it.
void prepare(QPainter& painter, const QRect& row, QStyle::State state)
{
    const YTheme& theme = YTheme::current();
    const bool current = state & QStyle::State_Selected;
    if (current)
        YRowLook::drawSelection(painter, row.adjusted(theme.menuEdge, 0, -theme.menuEdge, 0));
    painter.setPen(current                         ? theme.onAccent
                   : state & QStyle::State_Enabled ? theme.text
                                                   : theme.disabledText);
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
    painter->save();
    const QRect row = rowIn(option);
    prepare(*painter, row, option.state);
    QRect place = placeIn(option);
    if (hasMark(index.row())) {
        const QRect mark = markIn(place);
        paintMark(*painter, onItsSide(*painter, row, mark), item == m_model.checked(),
                  painter->pen().color());
        place.setLeft(mark.right() + 1 + gap());
    }
    paintSubItems(*painter, row, *item, place);
    painter->restore();
}

void YListDelegate::paintSubItems(QPainter& painter, const QRect& row, const YListBoxItem& item,
                                  QRect place) const
{
    const auto& subItems = item.d->subItems;
    if (!subItems.empty())
        place.setWidth(place.width() / static_cast<int>(subItems.size()));
    for (const auto& [number, subItem] : subItems) {
        paintSubItem(painter, row, subItem, fontOf(subItem), place);
        place.translate(place.width(), 0);
    }
}

QSize YListDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const auto* view = qobject_cast<const QAbstractItemView*>(option.widget);
    const int width = view ? view->width() : option.rect.width();
    return QSize(width - YTheme::current().indicator, height(index.row(), width));
}

int YListDelegate::height(int row, int width) const
{
    const YListBoxItem* item = m_model.item(row);
    if (!item || item->d->subItems.empty())
        return YTheme::current().rowHeight;
    const auto& subItems = item->d->subItems;
    // The scroll indicator's place stays free, so that rows do not change when it comes.
    const YTheme& theme = YTheme::current();
    int room = width - 2 * gap() - theme.indicator - (hasMark(row) ? theme.mark + gap() : 0);
    room /= static_cast<int>(subItems.size());
    int height = theme.rowHeight;
    for (const auto& [number, subItem] : subItems) {
        if (!subItem.second.isEmpty())
            continue;
        const YRowFont& font = fontOf(subItem);
        const int rest = room - pictureWidth(subItem);
        if (!font.fits(subItem.first, rest))
            height = std::max(height, font.wrappedHeight(subItem.first, rest) + 2 * theme.listLine);
    }
    return height;
}

const YRowFont& YListDelegate::fontOf(const YListSubItem& subItem) const
{
    if (!m_plainFont.isCurrent()) {
        m_plainFont = YRowFont(false);
        m_strongFont = YRowFont(true);
    }
    return subItem.strong ? m_strongFont : m_plainFont;
}

bool YListDelegate::hasMark(int row) const
{
    const QString own = m_model.item(row)->type();
    return (own.isNull() ? listType : own).contains(QStringLiteral("%R"));
}
