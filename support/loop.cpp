#include "support/loop.h"

#include "support/qt.h"

namespace support {

static qt::LoopLevel* innermost = nullptr;

void enterLoop()
{
    if (!qApp)
        return;
    qt::LoopLevel level;
    qt::LoopLevel* const outer = innermost;
    innermost = &level;
    level.run();
    innermost = outer;
}

// An application that is told to leave a loop while none runs would be of no use afterwards on
// Qt 2.
void exitLoop()
{
    if (innermost)
        innermost->leave();
}

void processPending()
{
    if (qApp)
        qt::processPending();
}

void wakeLoop()
{
    if (qApp)
        qt::wakeLoop();
}

} // namespace support
