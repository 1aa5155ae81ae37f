// The one place that asks which Qt this is. Each of the two headers below gives the same names in
// namespace support::qt; whoever includes this one sees no difference.
#ifndef SUPPORT_QT_H
#define SUPPORT_QT_H

#include <qglobal.h>

#if QT_VERSION < 0x060000
#include "support/qt2.h"
#else
#include "support/qt6.h"
#endif

#endif
