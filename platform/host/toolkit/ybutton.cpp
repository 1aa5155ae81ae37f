#include <ybutton.h>

#include <QCoreApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QPointer>

#include "toolkit/accessible/ytell.h"
#include "toolkit/look/yanswer.h"
#include "toolkit/look/ydress.h"
#include "toolkit/look/yrowlook.h"
#include "toolkit/look/ytheme.h"
#include "toolkit/look/ywrap.h"

namespace {

bool presses(int key)
{
    return key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Select ||
           key == Qt::Key_Space;
}

int textWidth(int width)
{
    return width - 2 * (YTheme::current().margin + YTheme::current().buttonSide);
}

// Above and below the text, to the button's edge and from there to the next row.
int aroundText()
{
    return YTheme::current().buttonLine + YTheme::current().rowGap;
}

} // namespace

struct YButton::Private
{
    bool enabled = true;
    bool tapped = false; // the finger is on a button that is switched off
    YWrapHeight measured;
    YAnswer* answer = nullptr; // made with the first key
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
    const int usual = YTheme::current().field;
    const int width = line + usual - textWidth(usual);
    return QSize(width, heightForWidth(width));
}

QSize YButton::minimumSizeHint() const
{
    return QSize(0, 0);
}

int YButton::heightForWidth(int width) const
{
    return d->measured.at(font(), text(), textWidth(width)) + 2 * aroundText();
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
    if (!d->enabled || !event->isAccepted() || event->isAutoRepeat())
        return;
    const QPointer<YButton> self(this);
    click();
    if (!self)
        return;
    if (!d->answer)
        d->answer = new YAnswer(this);
    d->answer->press(this);
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
    const double line = focused ? theme.focus : theme.line;
    const QRectF body = QRectF(rect()).adjusted(theme.margin + line / 2, theme.rowGap + line / 2,
                                                -theme.margin - line / 2, -theme.rowGap - line / 2);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(focused ? theme.accent : d->enabled ? theme.outline : theme.border, line));
    painter.setBrush(isDown() ? theme.accent : d->enabled ? theme.bar : theme.background);
    painter.drawRoundedRect(body, theme.buttonRadius, theme.buttonRadius);
    painter.setPen(isDown() ? theme.onAccent : d->enabled ? theme.accent : theme.disabledText);
    const int side = theme.margin + theme.buttonSide;
    YWrap::draw(painter, rect().adjusted(side, 0, -side, 0), Qt::AlignCenter, text());
}
