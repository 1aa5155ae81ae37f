// Types that the toolkit's headers share.
#ifndef YTYPES_H
#define YTYPES_H

#include "yskinservice.h"

// The window flags of a widget's constructor; a plain number, as in Qt 2. The host takes 0 only:
// what kind of window a widget is follows from its class.
typedef unsigned int YWidgetFlags;

#endif
