#ifndef QGUARDEDPTR_H
#define QGUARDEDPTR_H

#include "qobject.h"

class QGuardedPtrPrivate;

template <class T> class QGuardedPtr
{
public:
    QGuardedPtr();
    QGuardedPtr(T*);
    QGuardedPtr(const QGuardedPtr<T>&);
    ~QGuardedPtr();
    QGuardedPtr<T>& operator=(const QGuardedPtr<T>&);
    QGuardedPtr<T>& operator=(T*);

    bool operator==(const QGuardedPtr<T>&) const;
    bool operator!=(const QGuardedPtr<T>&) const;
    bool isNull() const;
    T* operator->() const;
    T& operator*() const;
    operator T*() const;

private:
    QGuardedPtrPrivate* d;
};

#endif
