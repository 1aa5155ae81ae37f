#include "toolkit/input/yfinger.h"

#include <cmath>
#include <utility>

#include <QAbstractItemView>
#include <QApplication>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTimerEvent>

namespace {

// A finger is never quite still; below this distance in pixels it taps.
constexpr double tapDistance = 8;
constexpr int frameMilliseconds = 16;
constexpr double keptSpeed = 0.93;       // from frame to frame
constexpr double slowestSpeed = 0.05;    // pixels a millisecond; slower contents stand
constexpr quint64 restMilliseconds = 50; // a finger that rested so long does not flick

} // namespace

YFinger::YFinger(QAbstractScrollArea* scrolled) : QObject(scrolled), m_area(scrolled)
{
    // The contents' own children get the finger first, so that they have to be listened to as well.
    qApp->installEventFilter(this);
}

void YFinger::stop()
{
    m_flick.stop();
    m_speed = 0;
}

bool YFinger::eventFilter(QObject* watched, QEvent* event)
{
    const QEvent::Type type = event->type();
    const bool ofMouse = type == QEvent::MouseButtonPress || type == QEvent::MouseMove ||
                         type == QEvent::MouseButtonRelease;
    if (!ofMouse || m_sending || !watched->isWidgetType())
        return false;
    auto* widget = static_cast<QWidget*>(watched);
    if (widget != m_area->viewport() && !m_area->viewport()->isAncestorOf(widget))
        return false;
    const auto& mouse = *static_cast<QMouseEvent*>(event);
    if (type == QEvent::MouseButtonPress)
        return mouse.button() == Qt::LeftButton && pressed(widget, mouse);
    return type == QEvent::MouseMove ? moved(mouse) : released(mouse);
}

bool YFinger::pressed(QWidget* widget, const QMouseEvent& event)
{
    // What one widget does not want goes to the next one around it; the first one counts.
    if (m_state != State::Idle)
        return m_withheld;
    stop();
    m_state = State::Pressed;
    m_target = widget;
    m_start = m_last = event.globalPosition().y();
    m_startValue = m_area->verticalScrollBar()->value();
    m_lastTime = event.timestamp();
    m_withheld = qobject_cast<QAbstractItemView*>(m_area) && widget == m_area->viewport();
    return m_withheld;
}

bool YFinger::moved(const QMouseEvent& event)
{
    if (m_state == State::Idle)
        return false;
    const double now = event.globalPosition().y();
    const bool far = std::abs(now - m_start) >= tapDistance;
    if (m_state == State::Pressed && far && m_area->verticalScrollBar()->maximum() > 0)
        takeOver(event);
    if (m_state != State::Dragging)
        return m_withheld;
    m_area->verticalScrollBar()->setValue(m_startValue +
                                          static_cast<int>(std::lround(m_start - now)));
    const quint64 elapsed = event.timestamp() - m_lastTime;
    if (elapsed > 0) {
        m_speed = (m_last - now) / static_cast<double>(elapsed);
        m_last = now;
        m_lastTime = event.timestamp();
    }
    return true;
}

// What was pressed is told that the finger has left it.
void YFinger::takeOver(const QMouseEvent& event)
{
    if (!m_withheld)
        send(QEvent::MouseButtonRelease, event, QPointF(-10000, -10000));
    m_state = State::Dragging;
}

bool YFinger::released(const QMouseEvent& event)
{
    const State was = std::exchange(m_state, State::Idle);
    if (was == State::Pressed && m_withheld) {
        const QPointF local = event.position();
        send(QEvent::MouseButtonPress, event, local);
        send(QEvent::MouseButtonRelease, event, local);
        return true;
    }
    if (was != State::Dragging)
        return false;
    const bool rested = event.timestamp() - m_lastTime > restMilliseconds;
    if (!rested && std::abs(m_speed) > slowestSpeed) {
        m_position = m_area->verticalScrollBar()->value();
        m_flick.start(frameMilliseconds, this);
    }
    return true;
}

void YFinger::send(QEvent::Type type, const QMouseEvent& like, const QPointF& local)
{
    if (!m_target)
        return;
    const Qt::MouseButtons buttons =
        type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton;
    QMouseEvent event(type, local, m_target->mapToGlobal(local), Qt::LeftButton, buttons,
                      like.modifiers());
    QPointer<YFinger> self(this);
    m_sending = true;
    QCoreApplication::sendEvent(m_target, &event);
    if (self)
        m_sending = false;
}

void YFinger::timerEvent(QTimerEvent* event)
{
    if (event->timerId() != m_flick.timerId())
        return;
    QScrollBar* bar = m_area->verticalScrollBar();
    m_position += m_speed * frameMilliseconds;
    m_speed *= keptSpeed;
    bar->setValue(static_cast<int>(std::lround(m_position)));
    const bool atEnd = m_position <= bar->minimum() || m_position >= bar->maximum();
    if (atEnd || std::abs(m_speed) < slowestSpeed || !m_area->isVisible())
        stop();
}
