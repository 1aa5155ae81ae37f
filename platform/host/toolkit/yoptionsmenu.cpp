#include <yoptionsmenu.h>

#include <algorithm>
#include <vector>

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

#include "toolkit/accessible/ytell.h"
#include "toolkit/look/ytheme.h"
#include "toolkit/look/ywrap.h"

namespace {

constexpr int edge = 5; // between the panel's edge and the items
constexpr int linePadding = 8;
constexpr int textMargin = 10;
constexpr int markWidth = 26;
constexpr int iconSize = 20;
constexpr double radius = 6;

struct Item
{
    QAction* action; // the menu's child
    int id;
};

// Shows an item as its action is now.
void refresh(QListWidgetItem& row, const QAction& action)
{
    row.setText(action.text());
    row.setIcon(action.icon());
    row.setFlags(action.isEnabled() ? Qt::ItemIsEnabled | Qt::ItemIsSelectable
                                    : Qt::ItemFlags(Qt::NoItemFlags));
    row.setData(Qt::CheckStateRole, action.isCheckable()
                                        ? QVariant(action.isChecked() ? Qt::Checked : Qt::Unchecked)
                                        : QVariant());
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
    std::vector<Item> items;
    // Made when the menu is opened first, since most menus of most pages never are; its rows are
    // the items in their order.
    QListWidget* list = nullptr;
    QRect rect;
    QRect panel; // in the popup
    int nextId = 0;
    bool outside = false; // the finger is beside the panel

    int rowOf(int id) const
    {
        const auto found = std::find_if(items.begin(), items.end(),
                                        [id](const Item& item) { return item.id == id; });
        return found == items.end() ? -1 : static_cast<int>(found - items.begin());
    }

    // Null for a number that no item has.
    QAction* action(int id) const
    {
        const int row = rowOf(id);
        return row < 0 ? nullptr : items[static_cast<std::size_t>(row)].action;
    }

    int firstEnabled() const
    {
        const auto found = std::find_if(items.begin(), items.end(),
                                        [](const Item& item) { return item.action->isEnabled(); });
        return found == items.end() ? -1 : static_cast<int>(found - items.begin());
    }

    void refreshRow(int row) const
    {
        if (list && row >= 0)
            refresh(*list->item(row), *items[static_cast<std::size_t>(row)].action);
    }

    void rowChanged(int row, QAccessible::State changed) const
    {
        refreshRow(row);
        if (list)
            YTell::state(list, changed, row);
    }

    void insertRow(int row) const
    {
        if (!list)
            return;
        list->insertItem(row, new QListWidgetItem);
        refreshRow(row);
    }

    void makeList(YOptionsMenu* menu)
    {
        list = new ItemList(menu);
        list->setFrameShape(QFrame::NoFrame);
        list->setItemDelegate(new ItemDelegate(list));
        list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        list->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
        list->setEditTriggers(QAbstractItemView::NoEditTriggers);
        QObject::connect(list, SIGNAL(itemActivated(QListWidgetItem*)), menu,
                         SLOT(activate(QListWidgetItem*)));
        for (int row = 0; row < static_cast<int>(items.size()); ++row)
            insertRow(row);
    }

    // Gives each row the height of its text, and the sum.
    int layoutRows(int width) const
    {
        int sum = 0;
        for (int row = 0; row < list->count(); ++row) {
            QListWidgetItem* item = list->item(row);
            QRect place = textR(QRect(0, 0, width, 0), item->data(Qt::CheckStateRole).isValid());
            if (!item->icon().isNull())
                place.setLeft(place.left() + iconSize + textMargin);
            const int text = YWrap::height(YTheme::bodyFont(), item->text(), place.width());
            const int height = std::max(YTheme::rowHeight, text + 2 * linePadding);
            item->setSizeHint(QSize(1, height)); // wide as the list
            sum += height;
        }
        return sum;
    }
};

YOptionsMenu::YOptionsMenu(const QRect& rect, QWidget* parent, const char* name,
                           YWidgetFlags /*flags*/, int /*widgetClassId*/)
    : YPopup(UsualType, parent, name, true, PlainStyle, 0), d(new Private)
{
    d->rect = rect.intersected(YGlobal::getHomeR(true));
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
    while (id < 0 && d->action(d->nextId))
        ++d->nextId;
    const int number = id < 0 ? d->nextId++ : id;
    const int place = index < 0 || index > count() ? count() : index;
    d->items.insert(d->items.begin() + place, {action, number});
    d->insertRow(place);
    layoutContents();
    return number;
}

void YOptionsMenu::removeItem(int id)
{
    const int row = d->rowOf(id);
    if (row < 0)
        return;
    delete d->action(id);
    d->items.erase(d->items.begin() + row);
    if (d->list)
        delete d->list->item(row);
    layoutContents();
}

int YOptionsMenu::count() const
{
    return static_cast<int>(d->items.size());
}

QString YOptionsMenu::text(int id) const
{
    const QAction* action = d->action(id);
    return action ? action->text() : QString();
}

void YOptionsMenu::setItemEnabled(int id, bool enabled)
{
    QAction* action = d->action(id);
    if (!action || action->isEnabled() == enabled)
        return;
    action->setEnabled(enabled);
    QAccessible::State changed;
    changed.disabled = true;
    d->rowChanged(d->rowOf(id), changed);
}

bool YOptionsMenu::isItemEnabled(int id) const
{
    const QAction* action = d->action(id);
    return action && action->isEnabled();
}

void YOptionsMenu::setItemChecked(int id, bool checked)
{
    QAction* action = d->action(id);
    if (!action || !action->isCheckable() || action->isChecked() == checked)
        return;
    action->setChecked(checked);
    QAccessible::State changed;
    changed.checked = true;
    d->rowChanged(d->rowOf(id), changed);
}

bool YOptionsMenu::isItemChecked(int id) const
{
    const QAction* action = d->action(id);
    return action && action->isChecked();
}

// The popup covers the screen, so that a tap beside the panel is its own.
void YOptionsMenu::layoutContents()
{
    if (!d->list)
        return;
    const int width = d->rect.width() - 2 * edge;
    int height = d->layoutRows(width) + 2 * edge;
    if (height > d->rect.height()) {
        d->layoutRows(width - style()->pixelMetric(QStyle::PM_ScrollBarExtent));
        height = d->rect.height();
    }
    const int top = d->rect.top() + d->rect.height() - height;
    d->panel = YGlobal::mapFromGlobalR(this, QRect(d->rect.left(), top, d->rect.width(), height));
    d->list->setGeometry(d->panel.adjusted(edge, edge, -edge, -edge));
}

void YOptionsMenu::showEvent(QShowEvent* event)
{
    if (!d->list) {
        d->makeList(this);
        d->list->show();
    }
    setGeometry(YGlobal::getHomeR(true));
    YPopup::showEvent(event);
    const int row = d->firstEnabled();
    d->list->setCurrentRow(row);
    getSoftKey()->showButton(YSoftKey::Left, row >= 0);
    d->list->scrollToTop();
    d->list->setFocus();
}

void YOptionsMenu::keyPressEvent(QKeyEvent* event)
{
    const int row = event->key() - Qt::Key_1;
    if (row >= 0 && row < std::min(9, count()) && !event->isAutoRepeat())
        activate(d->list->item(row));
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
    const int row = chosen ? d->list->row(chosen) : -1;
    if (row < 0 || !d->items[static_cast<std::size_t>(row)].action->isEnabled())
        return;
    const int id = d->items[static_cast<std::size_t>(row)].id;
    QPointer<QAction> action(d->items[static_cast<std::size_t>(row)].action);
    accept();
    emit activated(id);
    if (!action)
        return;
    // Changes the mark of a checkable item, too.
    action->trigger();
    if (action)
        d->refreshRow(d->rowOf(id));
}

void YOptionsMenu::activateCurrent()
{
    activate(d->list->currentItem());
}
