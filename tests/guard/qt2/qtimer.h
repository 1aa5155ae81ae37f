#ifndef QTIMER_H
#define QTIMER_H

#include "qobject.h"

class QTimer : public QObject
{
    Q_OBJECT

public:
    QTimer(QObject* parent = 0, const char* name = 0);
    ~QTimer();

    bool isActive() const;
    int start(int milliseconds, bool singleShot = false);
    void changeInterval(int milliseconds);
    void stop();
    static void singleShot(int milliseconds, QObject* receiver, const char* member);

signals:
    void timeout();
};

#endif
