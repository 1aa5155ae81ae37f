#ifndef QCSTRING_H
#define QCSTRING_H

#include "qarray.h"

// Not a class of its own, so that it cannot be declared as one.
typedef QArray<char> QByteArray;

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
