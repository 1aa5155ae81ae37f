#ifndef QEVENT_H
#define QEVENT_H

#include "qnamespace.h"
#include "qrect.h"
#include "qstring.h"

class QObject;

class QEvent : public Qt
{
public:
    enum Type {
        None = 0,
        Timer = 1,
        MouseButtonPress = 2,
        MouseButtonRelease = 3,
        MouseButtonDblClick = 4,
        MouseMove = 5,
        KeyPress = 6,
        KeyRelease = 7,
        FocusIn = 8,
        FocusOut = 9,
        Enter = 10,
        Leave = 11,
        Paint = 12,
        Move = 13,
        Resize = 14,
        Show = 17,
        Hide = 18,
        Close = 19,
        SockAct = 50,
        ChildInserted = 70,
        ChildRemoved = 71,
        LayoutHint = 72,
        User = 1000
    };

    QEvent(Type);
    virtual ~QEvent();
    Type type() const;

protected:
    Type t;
};

class QTimerEvent : public QEvent
{
public:
    QTimerEvent(int id);
    int timerId() const;
};

class QMouseEvent : public QEvent
{
public:
    QMouseEvent(Type, const QPoint& position, int button, int state);
    const QPoint& pos() const;
    const QPoint& globalPos() const;
    int x() const;
    int y() const;
    int globalX() const;
    int globalY() const;
    ButtonState button() const;
    ButtonState state() const;
};

class QKeyEvent : public QEvent
{
public:
    QKeyEvent(Type, int key, int ascii, int state, const QString& text = QString::null,
              bool autorepeat = false, ushort count = 1);
    int key() const;
    int ascii() const;
    ButtonState state() const;
    bool isAccepted() const;
    QString text() const;
    bool isAutoRepeat() const;
    int count() const;
    void accept();
    void ignore();
};

class QFocusEvent : public QEvent
{
public:
    QFocusEvent(Type);
    bool gotFocus() const;
    bool lostFocus() const;
};

class QPaintEvent : public QEvent
{
public:
    QPaintEvent(const QRect&);
    const QRect& rect() const;
};

class QMoveEvent : public QEvent
{
public:
    QMoveEvent(const QPoint& position, const QPoint& oldPosition);
    const QPoint& pos() const;
    const QPoint& oldPos() const;
};

class QResizeEvent : public QEvent
{
public:
    QResizeEvent(const QSize& size, const QSize& oldSize);
    const QSize& size() const;
    const QSize& oldSize() const;
};

class QShowEvent : public QEvent
{
public:
    QShowEvent(bool spontaneous);
    bool spontaneous() const;
};

class QHideEvent : public QEvent
{
public:
    QHideEvent(bool spontaneous);
    bool spontaneous() const;
};

class QCloseEvent : public QEvent
{
public:
    QCloseEvent();
    bool isAccepted() const;
    void accept();
    void ignore();
};

class QChildEvent : public QEvent
{
public:
    QChildEvent(Type, QObject* child);
    QObject* child() const;
    bool inserted() const;
    bool removed() const;
};

class QCustomEvent : public QEvent
{
public:
    QCustomEvent(int type);
    QCustomEvent(Type, void* data);
    void* data() const;
};

#endif
