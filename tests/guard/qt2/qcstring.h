#ifndef QCSTRING_H
#define QCSTRING_H

#include "qglobal.h"

class QByteArray
{
public:
    QByteArray();
    QByteArray(int size);
    QByteArray(const QByteArray&);
    ~QByteArray();
    QByteArray& operator=(const QByteArray&);

    uint size() const;
    bool isEmpty() const;
    bool isNull() const;
    char* data() const;
    char& at(uint index) const;

private:
    struct Data;
    Data* d;
};

class QCString : public QByteArray
{
public:
    QCString();
    QCString(int size);
    QCString(const char*);
    QCString(const QCString&);
    QCString& operator=(const char*);
    QCString& operator=(const QCString&);

    uint length() const;
    operator const char*() const;
};

#endif
