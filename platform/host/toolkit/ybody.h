// What is around the phone's screen.
#ifndef YBODY_H
#define YBODY_H

#include "platform_export.h"

class QString;
class QWidget;

// VORN_BODY names the body in which the screen of any program opens: the phone on the desk, the
// whole screen of a real phone, or the phone in a browser. The bodies lie in a library beside this
// one, libvornbody, which is loaded when the application object of such a program is made. GUI
// thread only.
struct VORN_PLATFORM_API YBody
{
    // Makes the body, which owns `display`: the screen itself, or a widget around it. Result: the
    // body's window, hidden; null when VORN_BODY names none, or when libvornbody is not there,
    // which is told on standard error.
    static QWidget* around(QWidget* display);
};

#endif
