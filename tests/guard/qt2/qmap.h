#ifndef QMAP_H
#define QMAP_H

#include "qglobal.h"

template <class K, class T> class QMapIterator
{
public:
    bool operator==(const QMapIterator<K, T>&) const;
    bool operator!=(const QMapIterator<K, T>&) const;
    T& operator*();
    const T& operator*() const;
    const K& key() const;
    T& data();
    const T& data() const;
    QMapIterator<K, T>& operator++();
    QMapIterator<K, T> operator++(int);
};

template <class K, class T> class QMapConstIterator
{
public:
    QMapConstIterator(const QMapIterator<K, T>&);
    bool operator==(const QMapConstIterator<K, T>&) const;
    bool operator!=(const QMapConstIterator<K, T>&) const;
    const T& operator*() const;
    const K& key() const;
    const T& data() const;
    QMapConstIterator<K, T>& operator++();
    QMapConstIterator<K, T> operator++(int);
};

template <class K, class T> class QMap
{
public:
    typedef QMapIterator<K, T> Iterator;
    typedef QMapConstIterator<K, T> ConstIterator;

    QMap();
    QMap(const QMap<K, T>&);
    ~QMap();
    QMap<K, T>& operator=(const QMap<K, T>&);

    Iterator begin();
    Iterator end();
    ConstIterator begin() const;
    ConstIterator end() const;
    Iterator insert(const K&, const T&);
    void remove(const K&);
    void clear();
    Iterator find(const K&);
    ConstIterator find(const K&) const;
    bool contains(const K&) const;
    T& operator[](const K&);
    const T& operator[](const K&) const;
    uint count() const;
    bool isEmpty() const;

private:
    struct Private;
    Private* d;
};

#endif
