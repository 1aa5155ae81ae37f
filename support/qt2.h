// What is particular to Qt 2.3; included through support/qt.h only.
#ifndef SUPPORT_QT2_H
#define SUPPORT_QT2_H

#include <qapplication.h>
#include <qguardedptr.h>

namespace support {
namespace qt {

template <class T> using Pointer = QGuardedPtr<T>;

// One level of the event loop. The application leaves the innermost one, whichever object asks.
class LoopLevel
{
public:
    void run() { qApp->enter_loop(); }
    void leave() { qApp->exit_loop(); }
};

// One pass over what is pending. A time of 0 or more would go on until nothing is left, and
// processOneEvent() would wait for something to come.
inline void processPending()
{
    qApp->processEvents(-1);
}

inline void wakeLoop()
{
    qApp->wakeUpGuiThread();
}

} // namespace qt
} // namespace support

#endif
