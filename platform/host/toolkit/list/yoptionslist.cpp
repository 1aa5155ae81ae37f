#include "toolkit/list/yoptionslist.h"

#include <algorithm>

#include <QAction>
#include <QKeyEvent>
#include <QPainter>
#include <QPainterPath>
#include <QStyledItemDelegate>

#include "toolkit/look/ytheme.h"
#include "toolkit/look/ywrap.h"

namespace {

constexpr int textMargin = 10;
constexpr int markWidth = 26;
constexpr int pictureSize = 20;
constexpr double radius = 6;

// Above and below the text of a row.
int linePadding()
{
    return YTheme::isSmall() ? 5 : 8;
}

QRect textR(const QRect& row, bool checkable)
{
    return row.adjusted(textMargin, 0, -textMargin - (checkable ? markWidth : 0), 0);
}

void drawMark(QPainter* painter, const QPointF& middle)
{
    QPainterPath mark;
    mark.moveTo(middle + QPointF(-5, 0));
    mark.lineTo(middle + QPointF(-1, 4));
    mark.lineTo(middle + QPointF(6, -4));
    painter->setPen(QPen(painter->pen().color(), 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter->drawPath(mark);
}

void drawSelection(QPainter& painter, const QRect& place)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(YTheme::current().accent);
    painter.drawRoundedRect(place, radius, radius);
}

// Result: the place that is left beside the icon.
QRect drawIcon(QPainter& painter, const QIcon& icon, const QRect& place)
{
    icon.paint(&painter,
               QRect(place.left(), place.center().y() - pictureSize / 2, pictureSize, pictureSize));
    return place.adjusted(pictureSize + textMargin, 0, 0, 0);
}

class ItemDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override
    {
        const YTheme& theme = YTheme::current();
        const bool enabled = index.flags() & Qt::ItemIsEnabled;
        const bool current = enabled && option.state & QStyle::State_Selected;
        const QVariant mark = index.data(Qt::CheckStateRole);
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        if (current)
            drawSelection(*painter, option.rect);
        painter->setBrush(Qt::NoBrush);
        painter->setPen(current ? theme.onAccent : enabled ? theme.text : theme.disabledText);
        QRect place = textR(option.rect, mark.isValid());
        const auto icon = index.data(Qt::DecorationRole).value<QIcon>();
        if (!icon.isNull())
            place = drawIcon(*painter, icon, place);
        YWrap::draw(*painter, place, Qt::AlignVCenter | Qt::AlignLeft, index.data().toString());
        if (mark.toInt() == Qt::Checked)
            drawMark(painter,
                     QPointF(option.rect.right() - markWidth / 2.0, option.rect.center().y()));
        painter->restore();
    }
};

} // namespace

YOptionsList::YOptionsList(QWidget* parent) : QListWidget(parent)
{
    setFrameShape(QFrame::NoFrame);
    setItemDelegate(new ItemDelegate(this));
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
}

void YOptionsList::insert(int row, const QAction& action)
{
    insertItem(row, new QListWidgetItem);
    refresh(row, action);
}

void YOptionsList::refresh(int row, const QAction& action)
{
    QListWidgetItem& shown = *item(row);
    shown.setText(action.text());
    shown.setIcon(action.icon());
    shown.setFlags(action.isEnabled() ? Qt::ItemIsEnabled | Qt::ItemIsSelectable
                                      : Qt::ItemFlags(Qt::NoItemFlags));
    shown.setData(Qt::CheckStateRole,
                  action.isCheckable() ? QVariant(action.isChecked() ? Qt::Checked : Qt::Unchecked)
                                       : QVariant());
}

int YOptionsList::layoutRows(int width)
{
    int sum = 0;
    for (int row = 0; row < count(); ++row) {
        QListWidgetItem* shown = item(row);
        QRect place = textR(QRect(0, 0, width, 0), shown->data(Qt::CheckStateRole).isValid());
        if (!shown->icon().isNull())
            place.setLeft(place.left() + pictureSize + textMargin);
        const int text = YWrap::height(YTheme::bodyFont(), shown->text(), place.width());
        const int height = std::max(YTheme::rowHeight(), text + 2 * linePadding());
        shown->setSizeHint(QSize(1, height)); // wide as the list
        sum += height;
    }
    return sum;
}

void YOptionsList::keyPressEvent(QKeyEvent* event)
{
    if (event->key() >= Qt::Key_1 && event->key() <= Qt::Key_9)
        event->ignore();
    else
        QListWidget::keyPressEvent(event);
}
