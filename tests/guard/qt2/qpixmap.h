#ifndef QPIXMAP_H
#define QPIXMAP_H

#include "qpaintdevice.h"
#include "qrect.h"
#include "qstring.h"

class QPixmap : public QPaintDevice, public Qt
{
public:
    QPixmap();
    QPixmap(int width, int height, int depth = -1);
    QPixmap(const QString& fileName);
    QPixmap(const QPixmap&);
    ~QPixmap();
    QPixmap& operator=(const QPixmap&);

    bool isNull() const;
    int width() const;
    int height() const;
    QSize size() const;
    QRect rect() const;
    int depth() const;
    void resize(int width, int height);

private:
    struct Data;
    Data* d;
};

#endif
