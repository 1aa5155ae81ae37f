// Where the parts of the phone on the desk lie.
#ifndef PHONE_FRAME_CASELAYOUT_H
#define PHONE_FRAME_CASELAYOUT_H

#include <QRectF>
#include <QSize>

namespace phone {

struct CaseLayout
{
    // The keys below the screen, or beside it, where the desk is not high enough.
    enum class Keys { Below, Beside };

    // The case around a display of this size, as large as it usually is.
    static QSize usualSize(const QSize& display, Keys keys);
    // The same with everything larger by the scale, in the middle of a window.
    static CaseLayout in(const QSize& window, const QSize& display, Keys keys);

    // The place of a rectangle of the field of keys.
    QRectF onField(const QRectF& place) const;

    double scale = 1;
    QRectF body;
    QRectF ear;
    QRectF glass; // around the display
    QRect display;
    QRectF field; // of keys
};

} // namespace phone

#endif
