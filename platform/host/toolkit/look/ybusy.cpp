#include "toolkit/look/ybusy.h"

#include <algorithm>

#include <QPainter>
#include <QTimerEvent>

#include "toolkit/accessible/ytell.h"
#include "toolkit/look/ytheme.h"

namespace {

constexpr int steps = 12; // one turn a second
constexpr int stepMilliseconds = 83;
constexpr int litDegrees = 90;

} // namespace

YBusy::YBusy(QWidget* parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("busy"));
    setAttribute(Qt::WA_TransparentForMouseEvents);
    resize(sizeHint());
}

QSize YBusy::sizeHint() const
{
    return QSize(40, 40);
}

void YBusy::paintEvent(QPaintEvent*)
{
    const YTheme& theme = YTheme::current();
    constexpr double thickness = 4;
    const double side = std::min(width(), height()) - thickness;
    const QRectF ring((width() - side) / 2, (height() - side) / 2, side, side);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(theme.border, thickness));
    painter.drawEllipse(ring);
    painter.setPen(QPen(theme.accent, thickness, Qt::SolidLine, Qt::RoundCap));
    // Angles are sixteenths of a degree, counted against the clock from three o'clock.
    painter.drawArc(ring, (90 - m_step * 360 / steps) * 16, -litDegrees * 16);
}

void YBusy::showEvent(QShowEvent*)
{
    m_timer.start(stepMilliseconds, this);
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
    m_step = (m_step + 1) % steps;
    update();
}
