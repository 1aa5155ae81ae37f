#ifndef QAPPLICATION_H
#define QAPPLICATION_H

#include "qobject.h"

class QTranslator;
class QWidget;

class QApplication;
extern QApplication* qApp;

class QApplication : public QObject
{
    Q_OBJECT

public:
    QApplication(int& argc, char** argv);
    QApplication(int& argc, char** argv, bool guiEnabled);
    virtual ~QApplication();

    int argc() const;
    char** argv() const;
    virtual void setMainWidget(QWidget*);
    QWidget* mainWidget() const;
    QWidget* focusWidget() const;
    QWidget* activeWindow() const;
    static QWidget* desktop();

    int exec();
    void processEvents();
    void processEvents(int maxtime);
    void processOneEvent();
    int enter_loop();
    void exit_loop();
    static void exit(int code = 0);
    static bool sendEvent(QObject* receiver, QEvent*);
    static void postEvent(QObject* receiver, QEvent*);
    static void sendPostedEvents(QObject* receiver, int type);
    static void sendPostedEvents();
    virtual bool notify(QObject*, QEvent*);
    static bool startingUp();
    static bool closingDown();

    void installTranslator(QTranslator*);
    void removeTranslator(QTranslator*);

    void wakeUpGuiThread();
    void lock();
    void unlock(bool wakeUpGui = true);
    bool locked();

signals:
    void lastWindowClosed();
    void aboutToQuit();

public slots:
    void quit();
    void closeAllWindows();
};

#endif
