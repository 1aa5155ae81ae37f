#include "support/loop.h"

#include "support/qt.h"

namespace support {

namespace {

struct Level
{
    qt::LoopLevel loop;
    Level* outer;
    bool isLeft;
};

Level* innermost = nullptr;

} // namespace

// Either Qt forgets what a level further out is told before the inner ones have returned, so it is
// told when its turn has come.
void enterLoop()
{
    if (!qApp)
        return;
    Level level = {{}, innermost, false};
    innermost = &level;
    level.loop.run();
    innermost = level.outer;
    if (innermost && innermost->isLeft)
        innermost->loop.leave();
}

// An application that is told to leave a loop while none runs would be of no use afterwards on
// Qt 2.
void exitLoop()
{
    Level* level = innermost;
    while (level && level->isLeft)
        level = level->outer;
    if (!level)
        return;
    level->isLeft = true;
    if (level == innermost)
        level->loop.leave();
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
