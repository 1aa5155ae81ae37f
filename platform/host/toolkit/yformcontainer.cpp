#include <yformcontainer.h>

#include <algorithm>
#include <vector>

#include <QApplication>
#include <QKeyEvent>

#include "toolkit/look/ytheme.h"

namespace {

// What gets the focus when a row is gone to; null for a row that takes none.
QWidget* focusTarget(QWidget* row)
{
    if (row->isHidden() || !row->QWidget::isEnabled())
        return nullptr;
    if (row->focusPolicy() & Qt::TabFocus)
        return row;
    QWidget* proxy = row->focusProxy();
    return proxy && (proxy->focusPolicy() & Qt::TabFocus) ? proxy : nullptr;
}

int heightOf(const QWidget& row, int width)
{
    const int height =
        row.sizePolicy().hasHeightForWidth() ? row.heightForWidth(width) : row.sizeHint().height();
    return std::clamp(height, row.minimumHeight(), row.maximumHeight());
}

} // namespace

struct YFormContainer::Private
{
    std::vector<QWidget*> rows;

    std::vector<QWidget*>::const_iterator find(const QObject* row) const
    {
        return std::find(rows.begin(), rows.end(), row);
    }

    int indexOf(const QObject* row) const
    {
        const auto found = find(row);
        return found == rows.end() ? -1 : static_cast<int>(found - rows.begin());
    }

    QWidget* at(int index) const
    {
        return index >= 0 && index < static_cast<int>(rows.size())
                   ? rows[static_cast<std::size_t>(index)]
                   : nullptr;
    }

    // The row that is or contains `widget`, or -1.
    int rowWith(const QWidget* widget) const
    {
        const auto found = std::find_if(rows.begin(), rows.end(), [widget](const QWidget* row) {
            return row == widget || row->isAncestorOf(widget);
        });
        return found == rows.end() ? -1 : static_cast<int>(found - rows.begin());
    }

    // The upper edge of the first row that begins between two heights, else the later height: the
    // first row in sight is to be whole where there is room for it.
    int firstTop(int earliest, int latest) const
    {
        for (const QWidget* row : rows)
            if (!row->isHidden() && row->y() >= earliest && row->y() <= latest)
                return row->y();
        return latest;
    }

    // Rows beside `row`, in one direction, that take no focus belong to what is shown with it. The
    // last of them, or `row` itself; in the direction of the end only where no other row follows.
    QWidget* companion(int row, int step) const
    {
        int last = row;
        while (at(last + step) && !focusTarget(at(last + step)))
            last += step;
        return at(step > 0 && at(last + step) ? row : last);
    }
};

YFormContainer::YFormContainer(QWidget* parent, const char* name, int widgetClassId)
    : YScrollPanel(parent, name, widgetClassId), d(new Private)
{}

YFormContainer::~YFormContainer()
{
    // Rows that go with the form are no longer told to it.
    d.reset();
}

void YFormContainer::addChild(QWidget* child, bool /*stretch*/, QWidget* before)
{
    if (!child || child == before)
        return;
    const auto old = d->find(child);
    if (old != d->rows.end())
        d->rows.erase(old);
    if (child->parentWidget() != viewport())
        child->setParent(viewport());
    d->rows.insert(d->find(before), child);
    if (!isVisible())
        return;
    if (!child->testAttribute(Qt::WA_WState_ExplicitShowHide))
        child->show();
    updateContents();
}

QWidget* YFormContainer::getFirstChild() const
{
    return d->at(0);
}

QWidget* YFormContainer::getNextChild(QWidget* child) const
{
    const int index = d->indexOf(child);
    return index < 0 ? nullptr : d->at(index + 1);
}

QWidget* YFormContainer::getPreviousChild(QWidget* child) const
{
    const int index = d->indexOf(child);
    return index < 0 ? nullptr : d->at(index - 1);
}

int YFormContainer::childCount() const
{
    return static_cast<int>(d->rows.size());
}

void YFormContainer::ensureChildVisible(QWidget* child)
{
    const int index = d->indexOf(child);
    if (index < 0)
        return;
    updateContents();
    const int top = d->companion(index, -1)->y();
    const QWidget* last = d->companion(index, 1);
    const int bottom =
        last == d->rows.back() ? viewport()->height() : last->geometry().bottom() + 1;
    if (bottom - top > visibleHeight())
        ensureRangeVisible(child->y(), child->geometry().bottom() + 1);
    else if (bottom <= contentsY() + visibleHeight())
        ensureRangeVisible(top, bottom);
    else
        setContentsPos(0, d->firstTop(bottom - visibleHeight(), top));
}

int YFormContainer::layoutContents(int width)
{
    int top = 0;
    for (QWidget* row : d->rows) {
        if (row->isHidden())
            continue;
        const int height = heightOf(*row, width);
        row->setGeometry(0, top, width, height);
        top += height;
    }
    // The last row does not stand on the keys below the form.
    return d->rows.empty() ? top : top + YTheme::current().margin / 2;
}

void YFormContainer::contentsKeyPressEvent(QKeyEvent* event)
{
    event->accept();
    switch (event->key()) {
    case Qt::Key_Down:
    case Qt::Key_Up: {
        const int step = event->key() == Qt::Key_Down ? 1 : -1;
        // A key that is held stops at the end.
        if (!walk(step, !event->isAutoRepeat()))
            YScrollPanel::contentsKeyPressEvent(event);
        return;
    }
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (!event->isAutoRepeat())
            walk(1, false);
        return;
    }
    event->ignore();
}

void YFormContainer::contentsChildRemoved(QObject* child)
{
    if (!d)
        return;
    const auto found = d->find(child);
    if (found == d->rows.end())
        return;
    d->rows.erase(found);
    if (isVisible())
        QCoreApplication::postEvent(viewport(), new QEvent(QEvent::LayoutRequest));
}

bool YFormContainer::focusNextPrevChild(bool next)
{
    return walk(next ? 1 : -1, true);
}

// Goes to the next row that takes the focus; false when there is none.
bool YFormContainer::walk(int step, bool around)
{
    const int count = childCount();
    const int start = d->rowWith(viewport()->focusWidget());
    int index = start < 0 && step < 0 ? count : start;
    for (int tried = 0; tried < count; ++tried) {
        index += step;
        if (index < 0 || index >= count) {
            if (!around)
                return false;
            index = index < 0 ? count - 1 : 0;
        }
        QWidget* target = index == start ? nullptr : focusTarget(d->at(index));
        if (target) {
            target->setFocus(Qt::OtherFocusReason);
            return true;
        }
    }
    return false;
}
