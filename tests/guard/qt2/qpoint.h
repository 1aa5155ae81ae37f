#ifndef QPOINT_H
#define QPOINT_H

#include "qglobal.h"

class QPoint
{
public:
    QPoint();
    QPoint(int x, int y);

    bool isNull() const;
    int x() const;
    int y() const;
    void setX(int);
    void setY(int);
    QPoint& operator+=(const QPoint&);
    QPoint& operator-=(const QPoint&);

private:
    int xCoordinate;
    int yCoordinate;
};

bool operator==(const QPoint&, const QPoint&);
bool operator!=(const QPoint&, const QPoint&);
QPoint operator+(const QPoint&, const QPoint&);
QPoint operator-(const QPoint&, const QPoint&);

#endif
