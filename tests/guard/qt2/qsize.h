#ifndef QSIZE_H
#define QSIZE_H

#include "qpoint.h"

class QSize
{
public:
    QSize();
    QSize(int width, int height);

    bool isNull() const;
    bool isEmpty() const;
    bool isValid() const;
    int width() const;
    int height() const;
    void setWidth(int);
    void setHeight(int);
    QSize expandedTo(const QSize&) const;
    QSize boundedTo(const QSize&) const;

private:
    int horizontal;
    int vertical;
};

bool operator==(const QSize&, const QSize&);
bool operator!=(const QSize&, const QSize&);

#endif
