// The letters of titles: smaller where a title is long.
#ifndef YTITLE_H
#define YTITLE_H

#include <QFont>
#include <QString>

class QPainter;
class QRect;

struct YTitle
{
    // The usual letters of titles, or the largest smaller ones, down to the theme's smallest, with
    // which the text fits one line of this width.
    static QFont font(const QString& text, int width);
    static bool fitsOneLine(const QString& text, int width);

    // In one line, or in two of the smallest letters; what two lines have no room for ends in dots.
    static void draw(QPainter& painter, const QString& text, const QRect& place);
};

#endif
