#ifndef QSOCKET_H
#define QSOCKET_H

#include "qiodevice.h"
#include "qobject.h"

class QSocket : public QObject, public QIODevice
{
    Q_OBJECT

public:
    enum Error { ErrConnectionRefused, ErrHostNotFound, ErrSocketRead };
    enum State { Idle, HostLookup, Connecting, Listening, Connection, Closing };

    QSocket(QObject* parent = 0, const char* name = 0);
    virtual ~QSocket();

    State state() const;
    int socket() const;
    virtual void setSocket(int);
    bool open(int mode);
    void close();
    void flush();
    uint size() const;
    int readBlock(char* data, uint maximum);
    int writeBlock(const char* data, uint length);
    int getch();
    int putch(int);
    int ungetch(int);

signals:
    void hostFound();
    void connected();
    void connectionClosed();
    void delayedCloseFinished();
    void readyRead();
    void bytesWritten(int);
    void error(int);
};

#endif
