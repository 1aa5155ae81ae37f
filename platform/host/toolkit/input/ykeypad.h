// Whether the phone has a keypad: twelve keys, of which most have several letters.
#ifndef YKEYPAD_H
#define YKEYPAD_H

#include "platform_export.h"

// With a keypad, keys that carry Qt::KeypadModifier give letters as well as digits; without one
// they are the digits of a keyboard's number block. There is one when VORN_KEYPAD is set to
// anything but "0", or when the program that plays the phone says so.
struct VORN_PLATFORM_API YKeypad
{
    static bool isPresent();
    static void setPresent(bool present);
};

#endif
