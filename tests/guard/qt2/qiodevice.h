#ifndef QIODEVICE_H
#define QIODEVICE_H

#include "qcstring.h"

class QIODevice
{
public:
    QIODevice();
    virtual ~QIODevice();

    bool isOpen() const;
    virtual bool open(int mode) = 0;
    virtual void close() = 0;
    virtual void flush() = 0;
    virtual uint size() const = 0;
    virtual int readBlock(char* data, uint maximum) = 0;
    virtual int writeBlock(const char* data, uint length) = 0;
    virtual int getch() = 0;
    virtual int putch(int) = 0;
    virtual int ungetch(int) = 0;
};

#endif
