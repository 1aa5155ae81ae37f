// What is particular to Qt 6; included through support/qt.h only.
#ifndef SUPPORT_QT6_H
#define SUPPORT_QT6_H

#include <qabstracteventdispatcher.h>
#include <qapplication.h>
#include <qeventloop.h>
#include <qpointer.h>

namespace support {
namespace qt {

template <class T> using Pointer = QPointer<T>;

// One level of the event loop.
class LoopLevel
{
public:
    void run() { m_loop.exec(); }
    void leave() { m_loop.quit(); }

private:
    QEventLoop m_loop;
};

inline void processPending()
{
    QCoreApplication::processEvents();
}

inline void wakeLoop()
{
    if (QAbstractEventDispatcher* dispatcher = QAbstractEventDispatcher::instance(qApp->thread()))
        dispatcher->wakeUp();
}

} // namespace qt
} // namespace support

#endif
