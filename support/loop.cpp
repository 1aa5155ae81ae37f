#include "support/loop.h"

#include "support/qt.h"

namespace support {

namespace {

class Level;
Level* innermost = nullptr;

// Either Qt forgets what a level further out is told before the inner ones have returned, so it is
// told when its turn has come.
class Level
{
public:
    Level() : outer(innermost), isLeft(false) { innermost = this; }
    Level(const Level&) = delete;
    Level& operator=(const Level&) = delete;
    ~Level()
    {
        innermost = outer;
        if (outer)
            outer->resumeLeaving();
    }

    void run() { loop.run(); }

    void resumeLeaving()
    {
        if (isLeft)
            loop.leave();
    }

    // Leaves this level, or the first one further out that is not left yet.
    void leaveOne()
    {
        Level* level = this;
        while (level && level->isLeft)
            level = level->outer;
        if (!level)
            return;
        level->isLeft = true;
        if (level == this)
            loop.leave();
    }

private:
    qt::LoopLevel loop;
    Level* outer;
    bool isLeft;
};

} // namespace

void enterLoop()
{
    if (!qApp)
        return;
    Level level;
    level.run();
}

// An application that is told to leave a loop while none runs would be of no use afterwards on
// Qt 2.
void exitLoop()
{
    if (innermost)
        innermost->leaveOne();
}

void resumeLeaving()
{
    if (innermost)
        innermost->resumeLeaving();
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
