// refused: qeventloop.h
#include <qeventloop.h>
