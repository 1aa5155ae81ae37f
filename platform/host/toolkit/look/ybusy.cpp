#include "toolkit/look/ybusy.h"

#include <algorithm>
#include <cmath>

#include <QPainter>
#include <QTimerEvent>

#include "toolkit/accessible/ytell.h"
#include "toolkit/look/ytheme.h"

namespace {

constexpr int frameMilliseconds = 40;
constexpr double shortest = 60; // degrees of the part that is lit, when the ring has breathed out
constexpr double longest = 150; // and in

// Angles are sixteenths of a degree, counted against the clock from three o'clock.
int angle(double degrees)
{
    return static_cast<int>(degrees * 16);
}

} // namespace

YBusy::YBusy(QWidget* parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("busy"));
    setAttribute(Qt::WA_TransparentForMouseEvents);
    resize(sizeHint());
}

QSize YBusy::sizeHint() const
{
    return QSize(YTheme::current().busy, YTheme::current().busy);
}

void YBusy::paintEvent(QPaintEvent*)
{
    const YTheme& theme = YTheme::current();
    const int thickness = theme.busyLine;
    const double side = std::min(width(), height()) - thickness;
    const QRectF ring((width() - side) / 2, (height() - side) / 2, side, side);
    // The lit part grows and shrinks once in two turns.
    const double breath = (1 - std::cos(m_turned * M_PI)) / 2;
    const double lit = shortest + (longest - shortest) * breath;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(theme.border, thickness));
    painter.drawEllipse(ring);
    painter.setPen(QPen(theme.accent, thickness, Qt::SolidLine, Qt::RoundCap));
    painter.drawArc(ring, angle(90 - m_turned * 360), -angle(lit));
}

void YBusy::showEvent(QShowEvent*)
{
    if (YTheme::current().moves)
        m_timer.start(frameMilliseconds, this);
    tellBusy();
}

void YBusy::hideEvent(QHideEvent*)
{
    m_timer.stop();
    tellBusy();
}

void YBusy::tellBusy()
{
    QAccessible::State changed;
    changed.busy = true;
    YTell::state(this, changed);
}

void YBusy::timerEvent(QTimerEvent* event)
{
    if (event->timerId() != m_timer.timerId())
        return QWidget::timerEvent(event);
    m_turned += double(frameMilliseconds) / std::max(1, YTheme::current().turnTime);
    if (m_turned >= 2)
        m_turned -= 2;
    update();
}
