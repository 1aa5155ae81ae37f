#include <yoptionsmenu.h>

#include <algorithm>
#include <vector>

#include <QAction>
#include <QKeyEvent>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <QPointer>
#include <QStyle>

#include <yglobal.h>
#include <ysoftkey.h>

#include "toolkit/accessible/ytell.h"
#include "toolkit/list/yoptionslist.h"
#include "toolkit/look/ytheme.h"
#include "toolkit/yscreen.h"

namespace {

struct Item
{
    QAction* action; // the menu's child
    int id;
};

} // namespace

struct YOptionsMenu::Private
{
    std::vector<Item> items;
    // Made when the menu is opened first, since most menus of most pages never are; its rows are
    // the items in their order.
    YOptionsList* list = nullptr;
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
            list->refresh(row, *items[static_cast<std::size_t>(row)].action);
    }

    void rowChanged(int row, QAccessible::State changed) const
    {
        refreshRow(row);
        if (list)
            YTell::state(list, changed, row);
    }

    void insertRow(int row) const
    {
        if (list)
            list->insert(row, *items[static_cast<std::size_t>(row)].action);
    }

    void makeList(YOptionsMenu* menu)
    {
        list = new YOptionsList(menu);
        QObject::connect(list, SIGNAL(itemActivated(QListWidgetItem*)), menu,
                         SLOT(activate(QListWidgetItem*)));
        for (int row = 0; row < static_cast<int>(items.size()); ++row)
            insertRow(row);
    }
};

YOptionsMenu::YOptionsMenu(const QRect& rect, QWidget* parent, const char* name,
                           YWidgetFlags /*flags*/, int /*widgetClassId*/)
    : YPopup(UsualType, parent, name, true, PlainStyle, 0), d(new Private)
{
    d->rect = rect.intersected(YGlobal::getHomeR(true));
    connect(YScreen::instance(), &YScreen::resized, this, [this](const QSize& before) {
        d->rect.translate(0, YGlobal::getHomeR(true).height() - before.height());
        if (isVisible())
            setGeometry(YGlobal::getHomeR(true));
        layoutContents();
    });
    YSoftKey* keys = getSoftKey();
    keys->setText(YSoftKey::Left, tr("TXT_RID_SOFTKEY_SELECT", "Select"), 0);
    keys->setText(YSoftKey::Right, tr("TXT_RID_SOFTKEY_CANCEL", "Cancel"), 0);
    keys->setClickedSlot(YSoftKey::Left, this, SLOT(activateCurrent()));
    setAccessibleName(tr("TXT_RID_SOFTKEY_OPTIONS", "Options"));
}

YOptionsMenu::~YOptionsMenu() = default;

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
    const int edge = YTheme::current().menuEdge;
    const QRect room = d->rect.intersected(YGlobal::getHomeR(true));
    const int width = room.width() - 2 * edge;
    int height = d->list->layoutRows(width) + 2 * edge;
    if (height > room.height()) {
        d->list->layoutRows(width - style()->pixelMetric(QStyle::PM_ScrollBarExtent));
        height = room.height();
    }
    const int top = room.top() + room.height() - height;
    const QRect panel(room.left(), top, room.width(), height);
    d->panel = YGlobal::mapFromGlobalR(
        this, QStyle::visualRect(layoutDirection(), YGlobal::getHomeR(true), panel));
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
    // Round about the rows, whose corners are round themselves.
    const int radius = theme.selectionRadius + theme.menuEdge;
    outline.addRoundedRect(QRectF(d->panel).adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
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
