// refused: taking address of rvalue
#include <qfont.h>
#include <qwidget.h>

const QFont* refusedFontAddress(const QWidget& widget)
{
    return &widget.font();
}
