#include "cards/cardlist.h"

#include <QKeyEvent>

#include <toolkit/input/yfinger.h>

#include "cards/carddelegate.h"

namespace phone {

namespace {

constexpr int edge = 4; // above the first card and below the last one

} // namespace

CardList::CardList(QWidget* parent, int lines) : QListView(parent)
{
    setItemDelegate(new CardDelegate(this, lines));
    setFrameShape(QFrame::NoFrame);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setUniformItemSizes(true);
    setViewportMargins(0, edge, 0, edge);
    // The page's own ground shows between the cards.
    viewport()->setAutoFillBackground(false);
    new YFinger(this);
}

void CardList::setCurrentRow(int row)
{
    if (model() && row >= 0 && row < model()->rowCount())
        setCurrentIndex(model()->index(row, 0));
}

void CardList::keyPressEvent(QKeyEvent* event)
{
    const int rows = model() ? model()->rowCount() : 0;
    const int step = event->key() == Qt::Key_Up ? -1 : event->key() == Qt::Key_Down ? 1 : 0;
    if (step == 0 || rows == 0)
        return QListView::keyPressEvent(event);
    setCurrentRow((currentRow() + step + rows) % rows);
}

void CardList::focusInEvent(QFocusEvent* event)
{
    QListView::focusInEvent(event);
    if (currentRow() < 0)
        setCurrentRow(0);
}

void CardList::resizeEvent(QResizeEvent* event)
{
    QListView::resizeEvent(event);
    scrollTo(currentIndex());
}

} // namespace phone
