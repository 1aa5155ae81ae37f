// refused: QString
#include <QString>
