// Pointers that do not dangle.
#ifndef SUPPORT_GUARDED_H
#define SUPPORT_GUARDED_H

#include <memory>

#include "support/qt.h"

namespace support {

// Points to a QObject that somebody else owns, and is null as soon as that object has been deleted.
template <class T> class Guarded
{
public:
    Guarded(T* object = nullptr) : m_pointer(object) {}

    Guarded& operator=(T* object)
    {
        m_pointer = object;
        return *this;
    }

    bool isNull() const { return get() == nullptr; }
    T* get() const { return m_pointer; }
    operator T*() const { return get(); }
    T* operator->() const { return get(); }
    T& operator*() const { return *get(); }

private:
    qt::Pointer<T> m_pointer;
};

// Owns a QObject that others may delete, too, and deletes it at the end where nobody else has.
template <class T> class Owned
{
public:
    explicit Owned(T* object)
    {
        std::unique_ptr<T> unguarded(object);
        m_guarded = object;
        unguarded.release();
    }
    Owned(const Owned&) = delete;
    Owned& operator=(const Owned&) = delete;
    ~Owned() { delete m_guarded.get(); }

    T* get() const { return m_guarded.get(); }
    bool isNull() const { return m_guarded.isNull(); }
    T* operator->() const { return m_guarded.get(); }

private:
    Guarded<T> m_guarded;
};

} // namespace support

#endif
