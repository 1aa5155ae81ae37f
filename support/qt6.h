// What is particular to Qt 6; included through support/qt.h only.
#ifndef SUPPORT_QT6_H
#define SUPPORT_QT6_H

#include <qabstracteventdispatcher.h>
#include <qapplication.h>
#include <qeventloop.h>
#include <qobject.h>
#include <qpointer.h>
#include <qstring.h>
#include <qwidget.h>

#include <string>

#define SUPPORT_QOBJECT(parent, name) QObject(support::qt::Naming(this, name).pass<QObject>(parent))
#define SUPPORT_QWIDGET(parent, name, flags)                                                       \
    QWidget(support::qt::Naming(this, name).pass<QWidget>(parent), flags)
#define SUPPORT_VALIDATOR(parent, name)                                                            \
    QIntValidator(support::qt::Naming(this, name).pass<QWidget>(parent))

namespace support {
namespace qt {

typedef Qt::WindowFlags WidgetFlags;

template <class T> using Pointer = QPointer<T>;

// Names an object from inside the initialiser of its base: as a temporary it lives until the base
// has been constructed, and only then touches the object.
class Naming
{
public:
    Naming(QObject* newborn, const char* itsName) : object(newborn), name(itsName) {}
    Naming(const Naming&) = delete;
    Naming& operator=(const Naming&) = delete;
    ~Naming()
    {
        if (name)
            object->setObjectName(QString::fromUtf8(name));
    }

    template <class T> T* pass(T* parent) const { return parent; }

private:
    QObject* object;
    const char* name;
};

inline std::string nameOf(const QObject* object)
{
    return object->objectName().toStdString();
}

// One level of the event loop.
class LoopLevel
{
public:
    void run() { loop.exec(); }
    void leave() { loop.quit(); }

private:
    QEventLoop loop;
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

typedef QtMessageHandler InstalledHandler;
typedef void (*Deliver)(int type, const char* text);

// The number that Qt 2 has for a kind of message: 0 debug, 1 warning, 2 fatal.
inline int messageType(QtMsgType type)
{
    switch (type) {
    case QtDebugMsg:
    case QtInfoMsg:
        return 0;
    case QtWarningMsg:
    case QtCriticalMsg:
        return 1;
    case QtFatalMsg:
        return 2;
    }
    return 1;
}

// Has every message of Qt go to `deliver`.
template <Deliver deliver> InstalledHandler installHandler()
{
    struct Forward
    {
        static void message(QtMsgType type, const QMessageLogContext&, const QString& text)
        {
            deliver(messageType(type), text.toUtf8().constData());
        }
    };
    return qInstallMessageHandler(&Forward::message);
}

inline void restoreHandler(InstalledHandler handler)
{
    qInstallMessageHandler(handler);
}

} // namespace qt
} // namespace support

#endif
