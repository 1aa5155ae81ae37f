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

YFinger::YFinger(QAbstractScrollArea* scrolled) : QObject(scrolled), area(scrolled)
{
    // The contents' own children get the finger first, so that they have to be listened to as well.
    qApp->installEventFilter(this);
}

void YFinger::stop()
{
    flick.stop();
    speed = 0;
}

bool YFinger::eventFilter(QObject* watched, QEvent* event)
{
    const QEvent::Type type = event->type();
    const bool ofMouse = type == QEvent::MouseButtonPress || type == QEvent::MouseMove ||
                         type == QEvent::MouseButtonRelease;
    if (!ofMouse || sending || !watched->isWidgetType())
        return false;
    auto* widget = static_cast<QWidget*>(watched);
    if (widget != area->viewport() && !area->viewport()->isAncestorOf(widget))
        return false;
    const auto& mouse = *static_cast<QMouseEvent*>(event);
    if (type == QEvent::MouseButtonPress)
        return mouse.button() == Qt::LeftButton && pressed(widget, mouse);
    return type == QEvent::MouseMove ? moved(mouse) : released(mouse);
}

bool YFinger::pressed(QWidget* widget, const QMouseEvent& event)
{
    // What one widget does not want goes to the next one around it; the first one counts.
    if (state != State::Idle)
        return withheld;
    stop();
    state = State::Pressed;
    target = widget;
    start = last = event.globalPosition().y();
    startValue = area->verticalScrollBar()->value();
    lastTime = event.timestamp();
    withheld = qobject_cast<QAbstractItemView*>(area) && widget == area->viewport();
    return withheld;
}

bool YFinger::moved(const QMouseEvent& event)
{
    if (state == State::Idle)
        return false;
    const double now = event.globalPosition().y();
    const bool far = std::abs(now - start) >= tapDistance;
    if (state == State::Pressed && far && area->verticalScrollBar()->maximum() > 0)
        takeOver(event);
    if (state != State::Dragging)
        return withheld;
    area->verticalScrollBar()->setValue(startValue + static_cast<int>(std::lround(start - now)));
    const quint64 elapsed = event.timestamp() - lastTime;
    if (elapsed > 0) {
        speed = (last - now) / static_cast<double>(elapsed);
        last = now;
        lastTime = event.timestamp();
    }
    return true;
}

// What was pressed is told that the finger has left it.
void YFinger::takeOver(const QMouseEvent& event)
{
    if (!withheld)
        send(QEvent::MouseButtonRelease, event, QPointF(-10000, -10000));
    state = State::Dragging;
}

bool YFinger::released(const QMouseEvent& event)
{
    const State was = std::exchange(state, State::Idle);
    if (was == State::Pressed && withheld) {
        const QPointF local = event.position();
        send(QEvent::MouseButtonPress, event, local);
        send(QEvent::MouseButtonRelease, event, local);
        return true;
    }
    if (was != State::Dragging)
        return false;
    const bool rested = event.timestamp() - lastTime > restMilliseconds;
    if (!rested && std::abs(speed) > slowestSpeed) {
        position = area->verticalScrollBar()->value();
        flick.start(frameMilliseconds, this);
    }
    return true;
}

void YFinger::send(QEvent::Type type, const QMouseEvent& like, const QPointF& local)
{
    if (!target)
        return;
    const Qt::MouseButtons buttons =
        type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton;
    QMouseEvent event(type, local, target->mapToGlobal(local), Qt::LeftButton, buttons,
                      like.modifiers());
    QPointer<YFinger> self(this);
    sending = true;
    QCoreApplication::sendEvent(target, &event);
    if (self)
        sending = false;
}

void YFinger::timerEvent(QTimerEvent* event)
{
    if (event->timerId() != flick.timerId())
        return;
    QScrollBar* bar = area->verticalScrollBar();
    position += speed * frameMilliseconds;
    speed *= keptSpeed;
    bar->setValue(static_cast<int>(std::lround(position)));
    const bool atEnd = position <= bar->minimum() || position >= bar->maximum();
    if (atEnd || std::abs(speed) < slowestSpeed || !area->isVisible())
        stop();
}
