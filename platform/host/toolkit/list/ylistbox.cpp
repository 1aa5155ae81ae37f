#include <ylistbox.h>

#include <algorithm>

#include <QListView>
#include <QResizeEvent>

#include "toolkit/accessible/ytell.h"
#include "toolkit/input/yfinger.h"
#include "toolkit/list/ylistdelegate.h"
#include "toolkit/list/ylistitemdata.h"
#include "toolkit/list/ylistmodel.h"
#include "toolkit/look/ydress.h"
#include "toolkit/look/ytheme.h"

struct YListBox::Private
{
    QListView* view;
    YListModel* model;
    YListDelegate* delegate;
    YFinger* finger;
};

YListBox::YListBox(QWidget* parent, const char* name, YWidgetFlags /*flags*/)
    : QWidget(parent), d(new Private)
{
    if (name)
        setObjectName(QString::fromUtf8(name));
    YDress::wear(this);
    d->model = new YListModel(this);
    d->delegate = new YListDelegate(this, *d->model);
    d->view = new QListView(this);
    d->view->setModel(d->model);
    d->view->setItemDelegate(d->delegate);
    d->view->setFrameShape(QFrame::NoFrame);
    d->view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    d->view->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    d->view->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    d->finger = new YFinger(d->view);
    setFocusProxy(d->view);
    connect(d->view, SIGNAL(activated(QModelIndex)), this, SLOT(choose(QModelIndex)));
    connect(d->view->selectionModel(), SIGNAL(currentChanged(QModelIndex, QModelIndex)), this,
            SLOT(moved(QModelIndex)));
}

YListBox::~YListBox()
{
    delete d->view;
    delete d->model;
}

void YListBox::setItemType(QString type)
{
    d->delegate->listType = type;
    if (count() > 0)
        d->view->doItemsLayout();
}

QString YListBox::itemType() const
{
    return d->delegate->listType;
}

void YListBox::insertItem(YListBoxItem* item, int index, bool /*repaint*/)
{
    if (!item)
        return;
    if (item->d->inserted)
        d->model->take(d->model->row(item));
    const int rows = count();
    d->model->insert(index < 0 ? rows : std::min(index, rows), item);
}

void YListBox::removeItem(int index)
{
    delete item(index);
}

void YListBox::clear()
{
    d->model->clear();
}

int YListBox::count() const
{
    return d->model->rowCount();
}

YListBoxItem* YListBox::item(int index) const
{
    return d->model->item(index);
}

int YListBox::index(const YListBoxItem* item) const
{
    return d->model->row(item);
}

int YListBox::currentItem() const
{
    return d->view->currentIndex().row();
}

void YListBox::setCurrentItem(int index)
{
    if (item(index))
        d->view->setCurrentIndex(d->model->index(index));
}

void YListBox::checkItem(int index, bool checked)
{
    YListBoxItem* row = item(index);
    if (!row)
        return;
    YListBoxItem* before = d->model->checked();
    if (checked) {
        d->model->check(row);
        setCurrentItem(index);
    } else if (before == row) {
        d->model->check(nullptr);
    }
    if (before != d->model->checked())
        tellChecked(before, d->model->checked());
}

void YListBox::checkItem(YListBoxItem* item, bool checked)
{
    checkItem(index(item), checked);
}

YListBoxItem* YListBox::getCheckedItem() const
{
    return d->model->checked();
}

int YListBox::heightOfRows(int width, int most) const
{
    int height = 0;
    for (int row = 0; row < count() && height < most; ++row)
        height += d->delegate->height(row, width);
    return std::min(height, most);
}

QSize YListBox::sizeHint() const
{
    const int wide = std::max(minimumWidth(), 200);
    return QSize(wide, heightOfRows(wide, 5 * YTheme::current().rowHeight));
}

void YListBox::resizeEvent(QResizeEvent* event)
{
    d->view->setGeometry(rect());
    // Only the width changes the rows.
    if (event->oldSize().width() != width() && isVisible())
        d->view->doItemsLayout();
    d->finger->stop();
    // A choice far down the list is shown with what stands around it, where there is room for that.
    const QModelIndex current = d->view->currentIndex();
    if (!current.isValid() || !isVisible())
        return;
    const bool small = height() < 2 * d->delegate->height(current.row(), width());
    d->view->scrollTo(current, small ? QAbstractItemView::PositionAtTop
                                     : QAbstractItemView::PositionAtCenter);
}

void YListBox::choose(const QModelIndex& index)
{
    checkItem(index.row(), true);
    emit selected(index.row());
}

void YListBox::moved(const QModelIndex& index)
{
    emit highlighted(index.row());
}

void YListBox::tellChecked(YListBoxItem* before, YListBoxItem* now)
{
    QAccessible::State changed;
    changed.checked = true;
    if (!QAccessible::isActive())
        return;
    for (const YListBoxItem* item : {before, now})
        if (item)
            YTell::state(d->view, changed, index(item));
}

void YListBox::adopt(YListBoxItem* item)
{
    d->model->adopt(item);
}

void YListBox::release(YListBoxItem* item)
{
    d->model->disown(item);
    const int row = d->model->row(item);
    if (row >= 0)
        d->model->take(row);
}

void YListBox::changed(YListBoxItem* item)
{
    d->model->refresh(d->model->row(item));
}
