// refused: without object
#include <qapplication.h>

QWidget* refusedStaticFocusWidget()
{
    return QApplication::focusWidget();
}
