// refused: singleShot
#include <qtimer.h>

void refusedSingleShotLambda()
{
    QTimer::singleShot(0, [] {});
}
