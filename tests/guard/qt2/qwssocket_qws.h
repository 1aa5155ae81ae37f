#ifndef QWSSOCKET_QWS_H
#define QWSSOCKET_QWS_H

#include "qsocket.h"

class QWSSocket : public QSocket
{
    Q_OBJECT

public:
    QWSSocket(QObject* parent = 0, const char* name = 0);
    ~QWSSocket();
};

#endif
