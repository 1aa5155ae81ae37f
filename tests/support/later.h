// Calls at a later pass of the event loop, by a timer of the object itself, so that no slot is
// needed.
#ifndef TESTS_SUPPORT_LATER_H
#define TESTS_SUPPORT_LATER_H

#include <functional>
#include <utility>

#include <qobject.h>

class Later : public QObject
{
public:
    Later(int milliseconds, std::function<void()> what) : m_call(std::move(what))
    {
        startTimer(milliseconds);
    }

protected:
    void timerEvent(QTimerEvent*) override
    {
        const std::function<void()> now = std::move(m_call);
        delete this;
        now();
    }

private:
    std::function<void()> m_call;
};

// Has the event loop make the call once, after so many milliseconds.
inline void later(int milliseconds, std::function<void()> call)
{
    new Later(milliseconds, std::move(call));
}

#endif
