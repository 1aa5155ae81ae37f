#ifndef QMETAOBJECT_H
#define QMETAOBJECT_H

#include "qobjectdefs.h"

class QMetaObject
{
public:
    const char* className() const;
    const char* superClassName() const;
    QMetaObject* superClass() const;
    int numSlots(bool withInherited = false) const;
    int numSignals(bool withInherited = false) const;
};

#endif
