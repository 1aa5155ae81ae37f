// The display on which a program would be shown.
#ifndef PHONE_LAUNCH_DISPLAYPROBE_H
#define PHONE_LAUNCH_DISPLAYPROBE_H

#include <optional>

namespace phone {

struct DisplayFacts
{
    int width; // in pixels of the screen
    int height;
    double ratio;            // pixels to a logical pixel, as the desktop has it
    double widthMillimetres; // 0 where the display does not know
    double heightMillimetres;
};

// Asks the display in a process of its own, since a display that cannot be used ends the process,
// and since the scale is to be set before the application object is made. Nothing when it cannot be
// used, or does not answer within ten seconds.
std::optional<DisplayFacts> probeDisplay();

// Says on standard error that there is no display that can be used, and what to do.
void tellNoDisplay();

} // namespace phone

#endif
