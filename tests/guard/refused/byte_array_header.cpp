// refused: qbytearray.h
#include <qbytearray.h>
