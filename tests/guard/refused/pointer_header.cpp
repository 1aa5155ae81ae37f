// refused: qpointer.h
#include <qpointer.h>
