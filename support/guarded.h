// A pointer that does not dangle.
#ifndef SUPPORT_GUARDED_H
#define SUPPORT_GUARDED_H

#include "support/qt.h"

namespace support {

// Points to a QObject that somebody else owns, and is null as soon as that object has been deleted.
template <class T> class Guarded
{
public:
    Guarded(T* object = nullptr) : pointer(object) {}

    Guarded& operator=(T* object)
    {
        pointer = object;
        return *this;
    }

    bool isNull() const { return get() == nullptr; }
    T* get() const { return pointer; }
    operator T*() const { return get(); }
    T* operator->() const { return get(); }
    T& operator*() const { return *get(); }

private:
    qt::Pointer<T> pointer;
};

} // namespace support

#endif
