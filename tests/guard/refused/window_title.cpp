// refused: setWindowTitle
#include <qwidget.h>

void refusedWindowTitle(QWidget* widget)
{
    widget->setWindowTitle("Title");
}
