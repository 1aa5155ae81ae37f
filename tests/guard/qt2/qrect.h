#ifndef QRECT_H
#define QRECT_H

#include "qsize.h"

class QRect
{
public:
    QRect();
    QRect(const QPoint& topLeft, const QPoint& bottomRight);
    QRect(const QPoint& topLeft, const QSize& size);
    QRect(int left, int top, int width, int height);

    bool isNull() const;
    bool isEmpty() const;
    bool isValid() const;
    int left() const;
    int top() const;
    int right() const;
    int bottom() const;
    int x() const;
    int y() const;
    void setLeft(int);
    void setTop(int);
    void setRight(int);
    void setBottom(int);
    void setX(int);
    void setY(int);
    QPoint topLeft() const;
    QPoint bottomRight() const;
    QPoint topRight() const;
    QPoint bottomLeft() const;
    QPoint center() const;
    void setRect(int x, int y, int width, int height);
    QSize size() const;
    int width() const;
    int height() const;
    void setWidth(int);
    void setHeight(int);
    void setSize(const QSize&);
    void moveTopLeft(const QPoint&);
    void moveCenter(const QPoint&);
    void moveBy(int dx, int dy);

    QRect operator|(const QRect&) const;
    QRect operator&(const QRect&) const;
    bool contains(const QPoint&, bool proper = false) const;
    bool contains(int x, int y, bool proper = false) const;
    bool contains(const QRect&, bool proper = false) const;
    QRect unite(const QRect&) const;
    QRect intersect(const QRect&) const;
    bool intersects(const QRect&) const;

private:
    int x1;
    int y1;
    int x2;
    int y2;
};

bool operator==(const QRect&, const QRect&);
bool operator!=(const QRect&, const QRect&);

#endif
