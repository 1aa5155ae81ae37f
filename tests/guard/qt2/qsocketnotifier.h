#ifndef QSOCKETNOTIFIER_H
#define QSOCKETNOTIFIER_H

#include "qobject.h"

class QSocketNotifier : public QObject
{
    Q_OBJECT

public:
    enum Type { Read, Write, Exception };

    QSocketNotifier(int socket, Type, QObject* parent = 0, const char* name = 0);
    ~QSocketNotifier();

    int socket() const;
    Type type() const;
    bool isEnabled() const;
    virtual void setEnabled(bool);

signals:
    void activated(int socket);

protected:
    bool event(QEvent*);
};

#endif
