// How large everything is on the screen of a real phone.
#ifndef PHONE_LAUNCH_SCREENSCALE_H
#define PHONE_LAUNCH_SCREENSCALE_H

#include "displayprobe.h"

namespace phone {

struct ScreenScale
{
    double pixels; // of the screen to a logical pixel, in steps of a quarter
    int width;     // of the screen in logical pixels
    int height;
};

// A row of a list is seven millimetres high, where the display knows its size, and 44 pixels at
// least. A display that is too small for that many rows gets the smaller letters of a small screen,
// whose rows are 44 pixels high as well.
ScreenScale screenScale(const DisplayFacts& facts);

} // namespace phone

#endif
