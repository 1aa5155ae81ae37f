#include <ybutton.h>

#include <QCoreApplication>
#include <QKeyEvent>
#include <QPainter>

#include "toolkit/accessible/ytell.h"
#include "toolkit/look/ydress.h"
#include "toolkit/look/yrowlook.h"
#include "toolkit/look/ytheme.h"
#include "toolkit/look/ywrap.h"

namespace {

constexpr int sidePadding = 10;
constexpr int linePadding = 7; // above and below the text
constexpr int around = 4;      // to the rows above and below
constexpr double radius = 8;
constexpr int usualWidth = 160;

bool presses(int key)
{
    return key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Select ||
           key == Qt::Key_Space;
}

int textWidth(int width)
{
    return width - 2 * (YTheme::margin + sidePadding);
}

} // namespace

struct YButton::Private
{
    bool enabled = true;
    bool tapped = false; // the finger is on a button that is switched off
    YWrapHeight measured;
};

YButton::YButton(QWidget* parent, const char* name, int /*widgetClassId*/)
    : QPushButton(parent), d(new Private)
{
    if (name)
        setObjectName(QString::fromUtf8(name));
    YDress::wear(this);
    setFocusPolicy(Qt::StrongFocus);
    setAutoDefault(false);
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Fixed, QSizePolicy::PushButton);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

YButton::~YButton() = default;

bool YButton::isYEnabled() const
{
    return d->enabled;
}

QSize YButton::sizeHint() const
{
    // The sum of the letters' widths is rounded; a pixel more keeps them in one line.
    const int line = fontMetrics().horizontalAdvance(text()) + 1;
    const int width = line + usualWidth - textWidth(usualWidth);
    return QSize(width, heightForWidth(width));
}

QSize YButton::minimumSizeHint() const
{
    return QSize(0, 0);
}

int YButton::heightForWidth(int width) const
{
    return d->measured.at(font(), text(), textWidth(width)) + 2 * (linePadding + around);
}

void YButton::setEnabled(bool enabled)
{
    if (enabled == d->enabled)
        return;
    d->enabled = enabled;
    setDown(false);
    update();
    YTell::enabled(this);
}

void YButton::setText(const QString& text)
{
    QPushButton::setText(text);
    setShortcut(QKeySequence());
}

void YButton::keyPressEvent(QKeyEvent* event)
{
    YRowLook::reveal(this);
    event->setAccepted(presses(event->key()));
    if (d->enabled && event->isAccepted() && !event->isAutoRepeat())
        click();
}

void YButton::keyReleaseEvent(QKeyEvent* event)
{
    event->ignore();
}

void YButton::mousePressEvent(QMouseEvent* event)
{
    d->tapped = !d->enabled;
    if (d->enabled)
        QPushButton::mousePressEvent(event);
}

void YButton::mouseMoveEvent(QMouseEvent* event)
{
    if (d->enabled)
        QPushButton::mouseMoveEvent(event);
}

void YButton::mouseReleaseEvent(QMouseEvent* event)
{
    const bool tapped = d->tapped && rect().contains(event->position().toPoint());
    d->tapped = false;
    if (rect().contains(event->position().toPoint()))
        YRowLook::reveal(this);
    if (d->enabled) {
        QPushButton::mouseReleaseEvent(event);
    } else if (tapped) {
        QKeyEvent key(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
        QCoreApplication::sendEvent(this, &key);
    }
}

void YButton::paintEvent(QPaintEvent*)
{
    const YTheme& theme = YTheme::current();
    const bool focused = hasFocus();
    const double line = focused ? YTheme::focusWidth : 1;
    const QRectF body = QRectF(rect()).adjusted(YTheme::margin + line / 2, around + line / 2,
                                                -YTheme::margin - line / 2, -around - line / 2);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(focused ? theme.accent : d->enabled ? theme.outline : theme.border, line));
    painter.setBrush(isDown() ? theme.accent : d->enabled ? theme.bar : theme.background);
    painter.drawRoundedRect(body, radius, radius);
    painter.setPen(isDown() ? theme.onAccent : d->enabled ? theme.accent : theme.disabledText);
    const int side = YTheme::margin + sidePadding;
    YWrap::draw(painter, rect().adjusted(side, 0, -side, 0), Qt::AlignCenter, text());
}
