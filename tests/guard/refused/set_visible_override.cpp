// refused: override
#include <qwidget.h>

struct RefusedSetVisibleOverride : QWidget
{
    void setVisible(bool) override {}
};
