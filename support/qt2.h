// What is particular to Qt 2.3; included through support/qt.h only.
#ifndef SUPPORT_QT2_H
#define SUPPORT_QT2_H

#include <qapplication.h>
#include <qguardedptr.h>
#include <qobject.h>
#include <qstring.h>
#include <qwidget.h>

#include <string.h>

#define SUPPORT_QOBJECT(parent, name) QObject(parent, name)
#define SUPPORT_QWIDGET(parent, name, flags) QWidget(parent, name, flags)
#define SUPPORT_VALIDATOR(parent, name) QIntValidator(parent, name)

namespace support {
namespace qt {

typedef Qt::WFlags WidgetFlags;

template <class T> using Pointer = QGuardedPtr<T>;

// An object that was given no name answers with this one.
inline const char* nameOf(const QObject* object)
{
    const char* name = object->name();
    return name && strcmp(name, "unnamed") != 0 ? name : "";
}

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

typedef msg_handler InstalledHandler;
typedef void (*Deliver)(int type, const char* text);

// Has every message of Qt go to `deliver`, with Qt's number for its kind (0 debug, 1 warning, 2
// fatal).
template <Deliver deliver> InstalledHandler installHandler()
{
    struct Forward
    {
        static void message(QtMsgType type, const char* text)
        {
            deliver(static_cast<int>(type), text);
        }
    };
    return qInstallMsgHandler(&Forward::message);
}

inline void restoreHandler(InstalledHandler handler)
{
    qInstallMsgHandler(handler);
}

} // namespace qt
} // namespace support

#endif
