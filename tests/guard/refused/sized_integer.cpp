// refused: quint32
#include <qglobal.h>

quint32 refusedSizedInteger = 5;
