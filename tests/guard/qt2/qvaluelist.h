#ifndef QVALUELIST_H
#define QVALUELIST_H

#include "qglobal.h"

template <class T> class QValueListIterator
{
public:
    bool operator==(const QValueListIterator<T>&) const;
    bool operator!=(const QValueListIterator<T>&) const;
    T& operator*();
    const T& operator*() const;
    QValueListIterator<T>& operator++();
    QValueListIterator<T> operator++(int);
    QValueListIterator<T>& operator--();
    QValueListIterator<T> operator--(int);
};

template <class T> class QValueListConstIterator
{
public:
    QValueListConstIterator();
    QValueListConstIterator(const QValueListIterator<T>&);
    bool operator==(const QValueListConstIterator<T>&) const;
    bool operator!=(const QValueListConstIterator<T>&) const;
    const T& operator*() const;
    QValueListConstIterator<T>& operator++();
    QValueListConstIterator<T> operator++(int);
    QValueListConstIterator<T>& operator--();
    QValueListConstIterator<T> operator--(int);
};

template <class T> class QValueList
{
public:
    typedef QValueListIterator<T> Iterator;
    typedef QValueListConstIterator<T> ConstIterator;
    typedef T ValueType;

    QValueList();
    QValueList(const QValueList<T>&);
    ~QValueList();
    QValueList<T>& operator=(const QValueList<T>&);

    QValueList<T>& operator<<(const T&);
    QValueList<T>& operator+=(const T&);
    QValueList<T>& operator+=(const QValueList<T>&);
    QValueList<T> operator+(const QValueList<T>&) const;
    bool operator==(const QValueList<T>&) const;
    bool operator!=(const QValueList<T>&) const;

    Iterator begin();
    ConstIterator begin() const;
    Iterator end();
    ConstIterator end() const;
    Iterator insert(Iterator, const T&);
    Iterator append(const T&);
    Iterator prepend(const T&);
    Iterator remove(Iterator);
    void remove(const T&);
    void clear();

    T& first();
    const T& first() const;
    T& last();
    const T& last() const;
    T& operator[](uint index);
    const T& operator[](uint index) const;
    Iterator at(uint index);
    ConstIterator at(uint index) const;

    Iterator find(const T&);
    ConstIterator find(const T&) const;
    int findIndex(const T&) const;
    uint contains(const T&) const;
    uint count() const;
    bool isEmpty() const;

private:
    struct Private;
    Private* d;
};

#endif
