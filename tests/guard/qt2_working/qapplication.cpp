#include <qapplication.h>

#include <atomic>
#include <chrono>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>

#include <qsocketnotifier.h>
#include <qwidget.h>

#include "eventsources.h"

QApplication* qApp = nullptr;

// Told to leave the innermost level. It is kept when no level runs, and then nothing is processed
// any more: what the helpers have to prevent. Another thread may tell it too, which nobody notices
// before the wait has ended.
static std::atomic<bool> leave = false;
static bool quitting = false;
static int quitCode = 0;

QApplication::QApplication(int&, char**)
{
    qApp = this;
}

QApplication::~QApplication()
{
    qApp = nullptr;
}

int QApplication::exec()
{
    quitting = false;
    quitCode = 0;
    enter_loop();
    return quitCode;
}

int QApplication::enter_loop()
{
    const bool outer = leave;
    leave = false;
    while (!leave)
        eventsources::pass(true);
    leave = outer || quitting;
    return 0;
}

void QApplication::exit_loop()
{
    leave = true;
}

void QApplication::exit(int code)
{
    if (quitting)
        return;
    quitting = true;
    quitCode = code;
    leave = true;
}

void QApplication::processEvents(int maxtime)
{
    const auto begin = std::chrono::steady_clock::now();
    const std::chrono::milliseconds most(maxtime);
    while (!leave && eventsources::pass(false)) {
        if (std::chrono::steady_clock::now() - begin > most)
            return;
    }
}

void QApplication::wakeUpGuiThread()
{
    eventsources::wake();
}

bool QApplication::notify(QObject* receiver, QEvent* event)
{
    return receiver->event(event);
}

QMetaObject* QApplication::metaObject() const
{
    return nullptr;
}

QSocketNotifier::QSocketNotifier(int socket, Type, QObject* parent, const char* name)
    : QObject(parent, name)
{
    eventsources::watch(this, socket);
}

QSocketNotifier::~QSocketNotifier() {}

bool QSocketNotifier::event(QEvent* event)
{
    return event->type() == QEvent::SockAct || QObject::event(event);
}

QMetaObject* QSocketNotifier::metaObject() const
{
    return nullptr;
}

QEvent::QEvent(Type type) : t(type) {}
QEvent::~QEvent() {}

QEvent::Type QEvent::type() const
{
    return t;
}

QTimerEvent::QTimerEvent(int) : QEvent(Timer) {}

QPaintDevice::QPaintDevice(uint) {}
QPaintDevice::~QPaintDevice() {}

QWidget::QWidget(QWidget* parent, const char* name, WFlags) : QObject(parent, name), QPaintDevice(0)
{}

QWidget::~QWidget() {}

QWidget* QWidget::parentWidget() const
{
    return static_cast<QWidget*>(parent());
}

bool QWidget::event(QEvent* event)
{
    return QObject::event(event);
}

QMetaObject* QWidget::metaObject() const
{
    return nullptr;
}

static void report(const char* format, va_list arguments)
{
    std::vfprintf(stderr, format, arguments);
    std::fputc('\n', stderr);
}

void qDebug(const char* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    report(format, arguments);
    va_end(arguments);
}

void qWarning(const char* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    report(format, arguments);
    va_end(arguments);
}

void qFatal(const char* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    report(format, arguments);
    va_end(arguments);
    std::abort();
}
