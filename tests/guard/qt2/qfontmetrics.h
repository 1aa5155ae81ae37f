#ifndef QFONTMETRICS_H
#define QFONTMETRICS_H

#include "qfont.h"
#include "qrect.h"

class QFontMetrics
{
public:
    QFontMetrics(const QFont&);
    int ascent() const;
    int descent() const;
    int height() const;
    int leading() const;
    int lineSpacing() const;
    int width(const QString&, int length = -1) const;
    QRect boundingRect(const QString&, int length = -1) const;
};

#endif
