#include <ysingleselectdlg.h>

#include <algorithm>

#include <QLabel>

#include <ysoftkey.h>

#include "toolkit/look/ytheme.h"

struct YSingleSelectDlg::Private
{
    YListBox* list;
    QLabel* empty; // says that there is nothing to choose
};

YSingleSelectDlg::YSingleSelectDlg(QWidget* parent, const char* name, bool modal,
                                   YWidgetFlags /*flags*/)
    : YPopup(UsualType, parent, name, modal, PlainStyle, 0), d(new Private)
{
    build();
}

YSingleSelectDlg::YSingleSelectDlg(const QString& title, const QString& instruction,
                                   QWidget* parent, const char* name, bool modal,
                                   YWidgetFlags /*flags*/, int /*reserved*/)
    : YPopup(UsualType, parent, name, modal, PlainStyle, 0), d(new Private)
{
    build();
    setTitle(title);
    setInstructText(instruction);
}

YSingleSelectDlg::~YSingleSelectDlg() = default;

void YSingleSelectDlg::build()
{
    d->list = new YListBox(this, nullptr, 0);
    d->empty = new QLabel(tr("TXT_RID_LIST_EMPTY", "(empty)"), this);
    d->empty->setAlignment(Qt::AlignCenter);
    d->empty->setForegroundRole(QPalette::PlaceholderText);
    connect(d->list, SIGNAL(selected(int)), this, SLOT(accept()));
    YSoftKey* keys = getSoftKey();
    keys->setText(YSoftKey::Left, tr("TXT_RID_SOFTKEY_SELECT", "Select"), 0);
    keys->setText(YSoftKey::Right, tr("TXT_RID_SOFTKEY_CANCEL", "Cancel"), 0);
    keys->setClickedSlot(YSoftKey::Left, this, SLOT(acceptCurrent()));
    // With its final width from the start, the list lays its rows out once.
    layoutContents();
}

YListBox* YSingleSelectDlg::getListBox() const
{
    return d->list;
}

YListBoxItem* YSingleSelectDlg::getCheckedItem() const
{
    return d->list->getCheckedItem();
}

int YSingleSelectDlg::contentsHint(int width, int most) const
{
    // An empty list still has a place of its own.
    return std::max(YTheme::current().rowHeight, d->list->heightOfRows(width, most));
}

void YSingleSelectDlg::layoutContents()
{
    d->list->setGeometry(contentsR());
    d->empty->setGeometry(contentsR());
}

void YSingleSelectDlg::showEvent(QShowEvent* event)
{
    if (d->list->currentItem() < 0)
        d->list->setCurrentItem(0);
    d->list->focusProxy()->setAccessibleName(title());
    d->empty->setVisible(d->list->count() == 0);
    getSoftKey()->showButton(YSoftKey::Left, d->list->count() > 0);
    YPopup::showEvent(event);
    d->list->setFocus();
}

// The row under the cursor is what the user sees as the choice.
void YSingleSelectDlg::acceptCurrent()
{
    d->list->checkItem(d->list->currentItem(), true);
    accept();
}
