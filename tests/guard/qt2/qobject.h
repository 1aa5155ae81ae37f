#ifndef QOBJECT_H
#define QOBJECT_H

#include "qevent.h"
#include "qnamespace.h"
#include "qobjectdefs.h"
#include "qstring.h"

// No Q_OBJECT: what that declares elsewhere in public is protected here.
class QObject : public Qt
{
public:
    static QString tr(const char* text);
    static QString tr(const char* text, const char* comment);

    virtual QMetaObject* metaObject() const;
    virtual const char* className() const;

    QObject(QObject* parent = 0, const char* name = 0);
    virtual ~QObject();

    virtual bool event(QEvent*);
    virtual bool eventFilter(QObject*, QEvent*);

    bool isA(const char* className) const;
    bool inherits(const char* className) const;
    const char* name() const;
    virtual void setName(const char* name);
    bool isWidgetType() const;
    bool signalsBlocked() const;
    void blockSignals(bool block);

    int startTimer(int milliseconds);
    void killTimer(int id);
    void killTimers();

    virtual void insertChild(QObject*);
    virtual void removeChild(QObject*);
    void installEventFilter(const QObject*);
    void removeEventFilter(const QObject*);

    static bool connect(const QObject* sender, const char* signal, const QObject* receiver,
                        const char* member);
    bool connect(const QObject* sender, const char* signal, const char* member) const;
    static bool disconnect(const QObject* sender, const char* signal, const QObject* receiver,
                           const char* member);
    bool disconnect(const char* signal = 0, const QObject* receiver = 0, const char* member = 0);
    bool disconnect(const QObject* receiver, const char* member = 0);

    QObject* parent() const;

signals:
    void destroyed();

protected:
    static QMetaObject* staticMetaObject();
    virtual void initMetaObject();
    const QObject* sender();
    virtual void timerEvent(QTimerEvent*);
    virtual void childEvent(QChildEvent*);
    virtual void connectNotify(const char* signal);
    virtual void disconnectNotify(const char* signal);
    virtual bool checkConnectArgs(const char* signal, const QObject* receiver, const char* member);

private:
    QObject(const QObject&);
    QObject& operator=(const QObject&);

    static QMetaObject* metaObj;

    struct Private;
    Private* d;
};

#endif
