// refused: setVisible
#include <qwidget.h>

void refusedSetVisible(QWidget* widget)
{
    widget->setVisible(true);
}
