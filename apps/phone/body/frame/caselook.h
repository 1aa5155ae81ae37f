// The colours of the phone around its screen.
#ifndef PHONE_FRAME_CASELOOK_H
#define PHONE_FRAME_CASELOOK_H

#include <QColor>
#include <QFont>

namespace phone {

// They go with the theme in which the screen is shown; letters stand out from their ground by a
// contrast of 4.5 at least.
struct CaseLook
{
    static CaseLook current();

    // Letters of this height, in the theme's face.
    static QFont font(double pixels, QFont::Weight weight);

    QColor ground; // what the phone lies on
    QColor caseTop;
    QColor caseBottom;
    QColor rim; // the edge of the case
    QColor glass;
    QColor slot; // of the ear piece
    QColor keyTop;
    QColor keyBottom;
    QColor keyRim;
    QColor face;    // of a key
    QColor hint;    // its small letters
    QColor pressed; // a key that is pressed
    QColor onPressed;
};

} // namespace phone

#endif
