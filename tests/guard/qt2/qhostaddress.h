#ifndef QHOSTADDRESS_H
#define QHOSTADDRESS_H

#include "qstring.h"

class QHostAddress
{
public:
    QHostAddress();
    QHostAddress(Q_UINT32);
    QHostAddress(const QHostAddress&);
    virtual ~QHostAddress();
    QHostAddress& operator=(const QHostAddress&);

    void setAddress(Q_UINT32);
    bool setAddress(const QString&);
    bool isIp4Addr() const;
    Q_UINT32 ip4Addr() const;
    QString toString() const;
    bool operator==(const QHostAddress&) const;

private:
    struct Private;
    Private* d;
};

#endif
