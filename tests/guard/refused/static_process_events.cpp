// refused: without object
#include <qapplication.h>

void refusedStaticProcessEvents()
{
    QApplication::processEvents();
}
