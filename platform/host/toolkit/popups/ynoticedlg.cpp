#include <ynoticedlg.h>

#include <algorithm>

#include <QBasicTimer>
#include <QKeyEvent>
#include <QPainter>
#include <QStyle>
#include <QTimerEvent>

#include <ysoftkey.h>

#include "toolkit/look/yicon.h"
#include "toolkit/look/ymessagetext.h"
#include "toolkit/look/ytheme.h"

namespace {

int textLeft()
{
    return YTheme::current().margin + YTheme::current().sign;
}
} // namespace

struct YNoticeDlg::Private
{
    bool success;
    YMessageText* text;
    QBasicTimer timer;
};

YNoticeDlg::YNoticeDlg(int noticeType, const QString& title, const QString& text, QWidget* parent,
                       const char* name, bool modal, YWidgetFlags /*flags*/)
    : YPopup(UsualType, parent, name, modal, PlainStyle, 0), d(new Private)
{
    d->success = noticeType != Failure;
    d->text = new YMessageText(this);
    d->text->setText(text);
    d->text->setAttribute(Qt::WA_TransparentForMouseEvents);
    setTitle(title);
    if (title.isEmpty())
        setAccessibleName(text);
    else
        setAccessibleDescription(text);
    YSoftKey* keys = getSoftKey();
    keys->showButton(YSoftKey::Left, false);
    keys->setText(YSoftKey::Right, tr("TXT_RID_SOFTKEY_OK", "OK"), 0);
    keys->setClickedSlot(YSoftKey::Right, this, SLOT(accept()));
}

YNoticeDlg::~YNoticeDlg() = default;

QString YNoticeDlg::text() const
{
    return d->text->text();
}

int YNoticeDlg::contentsHint(int width, int most) const
{
    const int least = YTheme::current().sign + 2 * YTheme::current().margin;
    return std::min(most, std::max(least, d->text->fit(width - textLeft(), most)));
}

void YNoticeDlg::layoutContents()
{
    // A text of one line stands beside the middle of the sign.
    const QRect place = QStyle::visualRect(layoutDirection(), contentsR(),
                                           contentsR().adjusted(textLeft(), 0, 0, 0));
    const int height = std::min(place.height(), d->text->heightFor(place.width()));
    d->text->setGeometry(place.left(), place.top() + (place.height() - height) / 2, place.width(),
                         height);
}

void YNoticeDlg::showEvent(QShowEvent* event)
{
    YPopup::showEvent(event);
    d->timer.start(YTheme::current().noticeTime, this);
}

void YNoticeDlg::hideEvent(QHideEvent* event)
{
    d->timer.stop();
    YPopup::hideEvent(event);
}

void YNoticeDlg::keyPressEvent(QKeyEvent* event)
{
    const int key = event->key();
    const bool leaves = key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Escape;
    if (leaves && !event->isAutoRepeat())
        accept();
    else if (!d->text->scrollByKey(key))
        YPopup::keyPressEvent(event);
}

void YNoticeDlg::mouseReleaseEvent(QMouseEvent*)
{
    accept();
}

void YNoticeDlg::paintEvent(QPaintEvent* event)
{
    YPopup::paintEvent(event);
    QPainter painter(this);
    const YTheme& theme = YTheme::current();
    const QRect room = contentsR();
    const QRect sign(theme.margin, room.center().y() - theme.sign / 2, theme.sign, theme.sign);
    YIcon::draw(painter, d->success ? QStringLiteral("success") : QStringLiteral("failure"),
                QStyle::visualRect(layoutDirection(), room, sign),
                d->success ? theme.success : theme.failure);
}

void YNoticeDlg::timerEvent(QTimerEvent* event)
{
    if (event->timerId() == d->timer.timerId())
        accept();
}
