// refused: WindowFlags
#include <qwidget.h>

QWidget* refusedWindowFlags(QWidget* parent)
{
    return new QWidget(parent, Qt::WindowFlags());
}
