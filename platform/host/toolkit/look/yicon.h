// The phone's icons.
#ifndef YICON_H
#define YICON_H

#include <QPixmap>
#include <QString>
#include <QStringList>

#include "platform_export.h"

class QColor;
class QPainter;
class QRect;

// Drawn for this phone on one grid of 24 units with one stroke, in `icons/NAME.svg`; each has one
// colour, which the drawing gives it. GUI thread only.
struct VORN_PLATFORM_API YIcon
{
    // "add", "back", "call": the names of the files, in the alphabet's order.
    static QStringList names();

    // A square of `size` logical pixels, each `ratio` real ones. A null picture for a name that no
    // icon has.
    static QPixmap pixmap(const QString& name, int size, const QColor& colour, double ratio);

    // Draws the icon in the middle of `place`, as large as fits, as sharp as the painter's device.
    // What points in the direction of reading points to the other side where the painter's layout
    // runs from right to left.
    static void draw(QPainter& painter, const QString& name, const QRect& place,
                     const QColor& colour);
};

#endif
