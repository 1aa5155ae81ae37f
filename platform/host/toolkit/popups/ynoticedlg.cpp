#include <ynoticedlg.h>

#include <algorithm>

#include <QBasicTimer>
#include <QKeyEvent>
#include <QPainter>
#include <QTimerEvent>

#include <ysoftkey.h>

#include "toolkit/look/ymessagetext.h"
#include "toolkit/look/ytheme.h"

namespace {

constexpr int shownMilliseconds = 3000;
constexpr int signSize = 28;
constexpr int textLeft = YTheme::margin + signSize;

// A tick for what has succeeded, an exclamation mark for what has failed, in a filled circle.
void paintSign(QPainter& painter, const QRectF& place, bool success, const YTheme& theme)
{
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(success ? theme.success : theme.failure);
    painter.drawEllipse(place);
    painter.setPen(
        QPen(theme.surface, place.width() / 10, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const auto at = [&place](double x, double y) {
        return QPointF(place.left() + x * place.width(), place.top() + y * place.height());
    };
    if (success) {
        const QPointF tick[] = {at(0.28, 0.52), at(0.44, 0.68), at(0.73, 0.36)};
        painter.drawPolyline(tick, 3);
    } else {
        painter.drawLine(at(0.5, 0.26), at(0.5, 0.55));
        painter.drawPoint(at(0.5, 0.74));
    }
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
    const int least = signSize + 2 * YTheme::margin;
    return std::min(most, std::max(least, d->text->fit(width - textLeft, most)));
}

void YNoticeDlg::layoutContents()
{
    // A text of one line stands beside the middle of the sign.
    const QRect place = contentsR().adjusted(textLeft, 0, 0, 0);
    const int height = std::min(place.height(), d->text->heightFor(place.width()));
    d->text->setGeometry(place.left(), place.top() + (place.height() - height) / 2, place.width(),
                         height);
}

void YNoticeDlg::showEvent(QShowEvent* event)
{
    YPopup::showEvent(event);
    d->timer.start(shownMilliseconds, this);
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
    const QRect room = contentsR();
    const QRectF sign(YTheme::margin, room.center().y() - signSize / 2, signSize, signSize);
    paintSign(painter, sign, d->success, YTheme::current());
}

void YNoticeDlg::timerEvent(QTimerEvent* event)
{
    if (event->timerId() == d->timer.timerId())
        accept();
}
