#ifndef QPAINTDEVICE_H
#define QPAINTDEVICE_H

#include "qnamespace.h"

class QPaintDevice
{
public:
    virtual ~QPaintDevice();
    bool paintingActive() const;

protected:
    QPaintDevice(uint flags);
};

#endif
