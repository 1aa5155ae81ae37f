#ifndef QGUARDEDPTR_H
#define QGUARDEDPTR_H

#include <memory>

#include "qobject.h"

// The place that a deleted object empties; shared by all guards of one object.
typedef std::shared_ptr<QObject*> GuardedPlace;
GuardedPlace guardedPlaceOf(QObject*);

template <class T> class QGuardedPtr
{
public:
    QGuardedPtr() {}
    QGuardedPtr(T* object) : place(guardedPlaceOf(object)) {}
    QGuardedPtr<T>& operator=(T* object)
    {
        place = guardedPlaceOf(object);
        return *this;
    }

    bool operator==(const QGuardedPtr<T>& other) const { return pointer() == other.pointer(); }
    bool operator!=(const QGuardedPtr<T>& other) const { return pointer() != other.pointer(); }
    bool isNull() const { return !pointer(); }
    T* operator->() const { return pointer(); }
    T& operator*() const { return *pointer(); }
    operator T*() const { return pointer(); }

private:
    T* pointer() const { return place ? static_cast<T*>(*place) : nullptr; }

    GuardedPlace place;
};

#endif
