// Scrolling by the finger.
#ifndef YFINGER_H
#define YFINGER_H

#include <QBasicTimer>
#include <QEvent>
#include <QObject>
#include <QPointer>

#include "platform_export.h"

class QAbstractScrollArea;
class QMouseEvent;
class QWidget;

// A finger moves the contents of a scroll area as it goes; a flick lets them run on, but never past
// their ends. A finger that does not move taps, as without this. Qt's own QScroller does the same,
// but keeps some memory for every area that ever had one.
class VORN_PLATFORM_API YFinger : public QObject
{
    Q_OBJECT

public:
    // Belongs to `area`, and hears its contents as long as it is shown.
    explicit YFinger(QAbstractScrollArea* area);

    // Ends a flick that is under way, which would take the contents elsewhere.
    void stop();

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    bool pressed(QWidget* target, const QMouseEvent& event);
    bool moved(const QMouseEvent& event);
    bool released(const QMouseEvent& event);
    void takeOver(const QMouseEvent& event);
    void send(QEvent::Type type, const QMouseEvent& like, const QPointF& local);

    enum class State { Idle, Pressed, Dragging };

    QAbstractScrollArea* m_area;
    State m_state = State::Idle;
    bool m_withheld = false; // a list must not know of the press before it is a tap
    bool m_sending = false;
    QPointer<QWidget> m_target; // where the finger came down
    double m_start = 0;         // where on the screen it did, in pixels from the top
    int m_startValue = 0;       // and how far the area was scrolled then
    double m_last = 0;
    quint64 m_lastTime = 0; // milliseconds
    double m_speed = 0;     // of the contents, in pixels a millisecond
    double m_position = 0;  // of the contents during a flick
    QBasicTimer m_flick;
};

#endif
