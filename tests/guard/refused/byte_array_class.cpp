// refused: conflicting declaration
class QByteArray;
#include <qstring.h>
