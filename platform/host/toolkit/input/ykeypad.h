// Whether the phone has a keypad: twelve keys, of which most have several letters.
#ifndef YKEYPAD_H
#define YKEYPAD_H

#include "platform_export.h"

class QKeyEvent;

// With a keypad, its keys give letters as well as digits; without one they are the digits of a
// keyboard. There is one when VORN_KEYPAD is 1, or when the program that plays the phone says so.
struct VORN_PLATFORM_API YKeypad
{
    static bool isPresent();
    // For the program that plays the phone: its keys carry Qt::KeypadModifier, and a digit of the
    // keyboard stays a digit.
    static void setPresent(bool present);

    // Whether a key comes from the keypad: it carries Qt::KeypadModifier, or VORN_KEYPAD says that
    // the machine's own keys are one and it is a digit, '*' or '#' in any row. False without one.
    static bool isKey(const QKeyEvent& event);
};

#endif
