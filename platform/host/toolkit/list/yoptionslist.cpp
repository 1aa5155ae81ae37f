#include "toolkit/list/yoptionslist.h"

#include <algorithm>

#include <QAction>
#include <QKeyEvent>
#include <QPainter>
#include <QStyle>
#include <QStyledItemDelegate>

#include "toolkit/look/yicon.h"
#include "toolkit/look/yrowlook.h"
#include "toolkit/look/ytheme.h"
#include "toolkit/look/ywrap.h"

namespace {

// Where the parts of a row are, as in a row that is read from left to right.
struct Places
{
    QRect picture;
    QRect text;
    QRect mark;
};

Places placesIn(const QRect& row, bool hasPicture, bool hasMark)
{
    const YTheme& theme = YTheme::current();
    Places places;
    places.text = row.adjusted(theme.margin, 0, -theme.margin, 0);
    places.picture = places.mark = places.text;
    places.picture.setWidth(theme.icon);
    places.mark.setLeft(places.text.right() + 1 - theme.check);
    if (hasPicture)
        places.text.setLeft(places.picture.right() + 1 + theme.margin);
    if (hasMark)
        places.text.setRight(places.mark.left() - 1 - theme.margin);
    return places;
}

// The item's ground, and the pen for what is written on it.
void prepare(QPainter& painter, const QStyleOptionViewItem& option, bool enabled)
{
    const YTheme& theme = YTheme::current();
    const bool current = enabled && option.state & QStyle::State_Selected;
    if (current)
        YRowLook::drawSelection(painter, option.rect);
    painter.setPen(current ? theme.onAccent : enabled ? theme.text : theme.disabledText);
}

class ItemDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override
    {
        const QVariant mark = index.data(Qt::CheckStateRole);
        painter->save();
        prepare(*painter, option, index.flags() & Qt::ItemIsEnabled);
        const auto icon = index.data(Qt::DecorationRole).value<QIcon>();
        const Places places = placesIn(option.rect, !icon.isNull(), mark.isValid());
        const auto onItsSide = [&option](const QRect& place) {
            return QStyle::visualRect(option.direction, option.rect, place);
        };
        icon.paint(painter, onItsSide(places.picture));
        YWrap::draw(*painter, onItsSide(places.text), Qt::AlignVCenter | Qt::AlignLeft,
                    index.data().toString());
        if (mark.toInt() == Qt::Checked)
            YIcon::draw(*painter, QStringLiteral("check"), onItsSide(places.mark),
                        painter->pen().color());
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
    const YTheme& theme = YTheme::current();
    int sum = 0;
    for (int row = 0; row < count(); ++row) {
        QListWidgetItem* shown = item(row);
        const Places places = placesIn(QRect(0, 0, width, 0), !shown->icon().isNull(),
                                       shown->data(Qt::CheckStateRole).isValid());
        const int text = YWrap::height(theme.bodyFont(), shown->text(), places.text.width());
        const int height = std::max(theme.rowHeight, text + 2 * theme.menuLine);
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
