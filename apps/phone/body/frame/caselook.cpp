#include "caselook.h"

#include <toolkit/look/ytheme.h>

namespace phone {

namespace {

const CaseLook lightLook = {"#DDE2E9", "#FAFBFC", "#D3D9E1", "#A9B2BE", "#0B0E12",
                            "#59636F", "#FFFFFF", "#EEF1F5", "#BAC2CD", "#1A1F26",
                            "#4E5864", QColor(),  QColor()};

const CaseLook darkLook = {"#0B0D10", "#3A414B", "#1D2127", "#59626E", "#000000",
                           "#0B0D10", "#454D58", "#363D47", "#14171B", "#F1F3F6",
                           "#C3CBD4", QColor(),  QColor()};

} // namespace

CaseLook CaseLook::current()
{
    const YTheme& theme = YTheme::current();
    CaseLook look = theme.scheme == YTheme::Scheme::Dark ? darkLook : lightLook;
    look.pressed = theme.accent;
    look.onPressed = theme.onAccent;
    return look;
}

QFont CaseLook::font(double pixels, QFont::Weight weight)
{
    QFont font = YTheme::current().bodyFont();
    font.setPixelSize(std::max(1, qRound(pixels)));
    font.setWeight(weight);
    return font;
}

} // namespace phone
