#ifndef QKEYCODE_H
#define QKEYCODE_H

#include "qnamespace.h"

#endif
