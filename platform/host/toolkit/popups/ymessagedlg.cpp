#include <ymessagedlg.h>

#include <algorithm>

#include <QKeyEvent>

#include <ysoftkey.h>

#include "toolkit/look/ymessagetext.h"

struct YMessageDlg::Private
{
    YMessageText* text;
};

YMessageDlg::YMessageDlg(const QString& title, const QString& text, int messageType,
                         int /*reserved*/, QWidget* parent, const char* name, bool modal,
                         YWidgetFlags /*flags*/)
    : YPopup(UsualType, parent, name, modal, PlainStyle, 0), d(new Private)
{
    d->text = new YMessageText(this);
    d->text->setText(text);
    setTitle(title);
    setAccessibleDescription(text);
    YSoftKey* keys = getSoftKey();
    if (messageType == Question) {
        keys->setText(YSoftKey::Left, tr("TXT_RID_SOFTKEY_YES", "Yes"), 0);
        keys->setText(YSoftKey::Right, tr("TXT_RID_SOFTKEY_NO", "No"), 0);
    } else if (messageType == Confirmation) {
        keys->setText(YSoftKey::Left, tr("TXT_RID_SOFTKEY_OK", "OK"), 0);
        keys->setText(YSoftKey::Right, tr("TXT_RID_SOFTKEY_CANCEL", "Cancel"), 0);
    } else {
        keys->showButton(YSoftKey::Left, false);
        keys->setText(YSoftKey::Right, tr("TXT_RID_SOFTKEY_OK", "OK"), 0);
        keys->setClickedSlot(YSoftKey::Right, this, SLOT(accept()));
    }
}

YMessageDlg::~YMessageDlg() = default;

QString YMessageDlg::text() const
{
    return d->text->text();
}

int YMessageDlg::contentsHint(int width, int most) const
{
    return std::min(most, d->text->fit(width, most));
}

void YMessageDlg::layoutContents()
{
    d->text->setGeometry(contentsR());
}

void YMessageDlg::keyPressEvent(QKeyEvent* event)
{
    if (d->text->scrollByKey(event->key()))
        return;
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    // A message that asks nothing goes with the key that leaves.
    const bool leaves =
        event->key() == Qt::Key_Escape && !getSoftKey()->isButtonVisible(YSoftKey::Left);
    // The key that opened the message may still be held.
    if ((isReturn || leaves) && !event->isAutoRepeat())
        accept();
    else
        YPopup::keyPressEvent(event);
}
