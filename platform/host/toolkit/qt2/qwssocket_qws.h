// The client socket of Qt/Embedded 2 under its own header name, for Qt 6.
#ifndef QWSSOCKET_QWS_H
#define QWSSOCKET_QWS_H

#include <qobject.h>

#include "platform_export.h"

// A stream socket that somebody else has opened, read through the event loop of the thread that
// owns the object. Whatever arrives is buffered here, however little of it is taken, so that the
// sender never has to wait for the reader.
class VORN_PLATFORM_API QWSSocket : public QObject
{
    Q_OBJECT

public:
    explicit QWSSocket(QObject* parent = nullptr, const char* name = nullptr);
    // Closes the descriptor, without a signal.
    ~QWSSocket() override;

    // Takes over the descriptor of an open stream socket, sets it non-blocking and close-on-exec,
    // and reads from it. A socket adopted earlier is closed and its unread bytes are dropped.
    void setSocket(int socket);
    // The descriptor; -1 when none was adopted or after the connection ended.
    int socket() const;

    // Closes the descriptor and drops what is unread, without a signal.
    void close();

    // The number of bytes that readBlock() can take at once. Outside a slot of readyRead(), bytes
    // that have arrived but were not yet fetched are fetched now, and readyRead() is emitted from
    // inside the call. Inside such a slot the number changes only by reading.
    unsigned int size() const;

    // Takes up to `maximum` bytes into `data`. Result: the number of bytes; 0 when none is buffered
    // and the connection stands, or ended after it had been open; -1 when no socket was ever
    // adopted, or after close().
    int readBlock(char* data, unsigned int maximum);

Q_SIGNALS:
    // New bytes were buffered; once for each fetch. Not emitted again for bytes left unread.
    void readyRead();
    // The peer has closed its end. Buffered bytes can still be read.
    void connectionClosed();
    // Reading failed for good; 2 is the only value (a read error, for instance a reset connection).
    void error(int code);

private Q_SLOTS:
    void fetch();

private:
    class Buffer;
    struct Private;
    Private* d;
};

#endif
