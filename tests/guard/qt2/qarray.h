#ifndef QARRAY_H
#define QARRAY_H

#include "qglobal.h"

// Copies share what is written to them.
template <class type> class QArray
{
public:
    QArray();
    QArray(int size);
    QArray(const QArray<type>&);
    ~QArray();
    QArray<type>& operator=(const QArray<type>&);

    type* data() const;
    uint size() const;
    uint count() const;
    bool isEmpty() const;
    bool isNull() const;
    bool resize(uint size);
    type& at(uint index) const;
    type& operator[](int index) const;

private:
    struct Data;
    Data* d;
};

#endif
