#include <yoptionsmenu.h>

#include <algorithm>

#include <QAction>
#include <QKeyEvent>
#include <QListWidget>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <QPointer>
#include <QStyle>
#include <QStyledItemDelegate>

#include <yglobal.h>
#include <ysoftkey.h>

#include "ytheme.h"
#include "ywrap.h"

namespace {

constexpr int edge = 5; // between the panel's edge and the items
constexpr int linePadding = 8;
constexpr int textMargin = 10;
constexpr int markWidth = 26;
constexpr int iconSize = 20;
constexpr double radius = 6;

// An item of the list with the action that it stands for.
class Item : public QListWidgetItem
{
public:
    Item(QAction* owned, int number) : action(owned), id(number) { refresh(); }
    ~Item() override { delete action; }
    Item(const Item&) = delete;
    Item& operator=(const Item&) = delete;

    void refresh()
    {
        setText(action->text());
        setIcon(action->icon());
        setFlags(action->isEnabled() ? Qt::ItemIsEnabled | Qt::ItemIsSelectable
                                     : Qt::ItemFlags(Qt::NoItemFlags));
        setData(Qt::CheckStateRole,
                action->isCheckable() ? QVariant(action->isChecked() ? Qt::Checked : Qt::Unchecked)
                                      : QVariant());
    }

    QAction* const action;
    const int id;
};

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

// A list whose digits choose an item rather than search for one.
class ItemList : public QListWidget
{
public:
    using QListWidget::QListWidget;

protected:
    void keyPressEvent(QKeyEvent* event) override
    {
        if (event->key() >= Qt::Key_1 && event->key() <= Qt::Key_9)
            event->ignore();
        else
            QListWidget::keyPressEvent(event);
    }
};

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
        if (current) {
            painter->setPen(Qt::NoPen);
            painter->setBrush(theme.accent);
            painter->drawRoundedRect(option.rect, radius, radius);
        }
        painter->setBrush(Qt::NoBrush);
        painter->setPen(current ? theme.onAccent : enabled ? theme.text : theme.disabledText);
        QRect place = textR(option.rect, mark.isValid());
        const auto icon = index.data(Qt::DecorationRole).value<QIcon>();
        if (!icon.isNull()) {
            icon.paint(painter,
                       QRect(place.left(), place.center().y() - iconSize / 2, iconSize, iconSize));
            place.setLeft(place.left() + iconSize + textMargin);
        }
        YWrap::draw(*painter, place, Qt::AlignVCenter | Qt::AlignLeft, index.data().toString());
        if (mark.toInt() == Qt::Checked)
            drawMark(painter,
                     QPointF(option.rect.right() - markWidth / 2.0, option.rect.center().y()));
        painter->restore();
    }
};

} // namespace

struct YOptionsMenu::Private
{
    QListWidget* list = nullptr;
    QRect rect;
    QRect panel; // in the popup
    int nextId = 0;
    bool outside = false; // the finger is beside the panel

    Item* at(int row) const { return static_cast<Item*>(list->item(row)); }

    int rowOf(int id) const
    {
        for (int row = 0; row < list->count(); ++row)
            if (at(row)->id == id)
                return row;
        return -1;
    }

    Item* find(int id) const { return at(rowOf(id)); }

    // Gives each item the height of its text, and the sum.
    int layoutItems(int width) const
    {
        int sum = 0;
        for (int row = 0; row < list->count(); ++row) {
            QRect place = textR(QRect(0, 0, width, 0), at(row)->action->isCheckable());
            if (!at(row)->icon().isNull())
                place.setLeft(place.left() + iconSize + textMargin);
            const int text = YWrap::height(YTheme::bodyFont(), at(row)->text(), place.width());
            const int height = std::max(YTheme::rowHeight, text + 2 * linePadding);
            at(row)->setSizeHint(QSize(1, height)); // wide as the list
            sum += height;
        }
        return sum;
    }
};

YOptionsMenu::YOptionsMenu(const QRect& rect, QWidget* parent, const char* name,
                           YWidgetFlags /*flags*/, int /*widgetClassId*/)
    : YPopup(0, parent, name, true, PlainStyle, 0), d(new Private)
{
    d->rect = rect.intersected(YGlobal::getHomeR(true));
    d->list = new ItemList(this);
    d->list->setFrameShape(QFrame::NoFrame);
    d->list->setItemDelegate(new ItemDelegate(d->list));
    d->list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    d->list->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    d->list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    connect(d->list, SIGNAL(itemActivated(QListWidgetItem*)), this,
            SLOT(activate(QListWidgetItem*)));
    YSoftKey* keys = getSoftKey();
    keys->setText(YSoftKey::Left, tr("TXT_RID_SOFTKEY_SELECT", "Select"), 0);
    keys->setText(YSoftKey::Right, tr("TXT_RID_SOFTKEY_CANCEL", "Cancel"), 0);
    keys->setClickedSlot(YSoftKey::Left, this, SLOT(activateCurrent()));
    setAccessibleName(tr("TXT_RID_SOFTKEY_OPTIONS", "Options"));
}

YOptionsMenu::~YOptionsMenu()
{
    delete d;
}

int YOptionsMenu::insertItem(const QString& text, const QPixmap* picture, QObject* receiver,
                             const char* member, bool enabled, bool checkable, bool checked, int id,
                             int index, bool /*reserved*/)
{
    auto* action = new QAction(text, this);
    if (picture)
        action->setIcon(QIcon(*picture));
    action->setEnabled(enabled);
    action->setCheckable(checkable);
    action->setChecked(checked);
    if (receiver && member)
        connect(action, SIGNAL(triggered()), receiver, member);
    while (id < 0 && find(d->nextId))
        ++d->nextId;
    const int number = id < 0 ? d->nextId++ : id;
    const int place = index < 0 || index > count() ? count() : index;
    d->list->insertItem(place, new Item(action, number));
    layoutContents();
    return number;
}

void YOptionsMenu::removeItem(int id)
{
    delete d->find(id);
    layoutContents();
}

int YOptionsMenu::count() const
{
    return d->list->count();
}

QString YOptionsMenu::text(int id) const
{
    const Item* item = d->find(id);
    return item ? item->text() : QString();
}

void YOptionsMenu::setItemEnabled(int id, bool enabled)
{
    if (Item* item = d->find(id)) {
        item->action->setEnabled(enabled);
        item->refresh();
    }
}

bool YOptionsMenu::isItemEnabled(int id) const
{
    const Item* item = d->find(id);
    return item && item->action->isEnabled();
}

void YOptionsMenu::setItemChecked(int id, bool checked)
{
    if (Item* item = d->find(id)) {
        item->action->setChecked(checked);
        item->refresh();
    }
}

bool YOptionsMenu::isItemChecked(int id) const
{
    const Item* item = d->find(id);
    return item && item->action->isChecked();
}

// The popup covers the screen, so that a tap beside the panel is its own.
void YOptionsMenu::layoutContents()
{
    const int width = d->rect.width() - 2 * edge;
    int height = d->layoutItems(width) + 2 * edge;
    if (height > d->rect.height()) {
        d->layoutItems(width - style()->pixelMetric(QStyle::PM_ScrollBarExtent));
        height = d->rect.height();
    }
    const int top = d->rect.top() + d->rect.height() - height;
    d->panel = YGlobal::mapFromGlobalR(this, QRect(d->rect.left(), top, d->rect.width(), height));
    d->list->setGeometry(d->panel.adjusted(edge, edge, -edge, -edge));
}

void YOptionsMenu::showEvent(QShowEvent* event)
{
    setGeometry(YGlobal::getHomeR(true));
    YPopup::showEvent(event);
    int row = 0;
    while (row < count() && !d->at(row)->action->isEnabled())
        ++row;
    d->list->setCurrentRow(row < count() ? row : -1);
    getSoftKey()->showButton(YSoftKey::Left, row < count());
    d->list->scrollToTop();
    d->list->setFocus();
}

void YOptionsMenu::keyPressEvent(QKeyEvent* event)
{
    const int row = event->key() - Qt::Key_1;
    if (row >= 0 && row < std::min(9, count()) && !event->isAutoRepeat())
        activate(d->at(row));
    else
        YPopup::keyPressEvent(event);
}

void YOptionsMenu::mousePressEvent(QMouseEvent* event)
{
    d->outside = !d->panel.contains(event->position().toPoint());
}

void YOptionsMenu::mouseReleaseEvent(QMouseEvent* event)
{
    if (d->outside && !d->panel.contains(event->position().toPoint()))
        reject();
    d->outside = false;
}

void YOptionsMenu::paintEvent(QPaintEvent*)
{
    const YTheme& theme = YTheme::current();
    QPainterPath outline;
    outline.addRoundedRect(QRectF(d->panel).adjusted(0.5, 0.5, -0.5, -0.5), YTheme::radius,
                           YTheme::radius);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(theme.border);
    painter.setBrush(theme.surface);
    painter.drawPath(outline);
}

// The menu, and with it its page, may be deleted by the item's slot.
void YOptionsMenu::activate(QListWidgetItem* chosen)
{
    auto* item = static_cast<Item*>(chosen);
    if (!item || !item->action->isEnabled())
        return;
    QPointer<QAction> action(item->action);
    accept();
    emit activated(item->id);
    if (!action)
        return;
    // Changes the mark of a checkable item, too.
    action->trigger();
    if (action)
        item->refresh();
}

void YOptionsMenu::activateCurrent()
{
    activate(d->list->currentItem());
}
