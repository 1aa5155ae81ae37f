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
    Level() : m_outer(innermost), m_isLeft(false) { innermost = this; }
    Level(const Level&) = delete;
    Level& operator=(const Level&) = delete;
    ~Level()
    {
        innermost = m_outer;
        if (m_outer)
            m_outer->resumeLeaving();
    }

    void run() { m_loop.run(); }

    void resumeLeaving()
    {
        if (m_isLeft)
            m_loop.leave();
    }

    // Leaves this level, or the first one further out that is not left yet.
    void leaveOne()
    {
        Level* level = this;
        while (level && level->m_isLeft)
            level = level->m_outer;
        if (!level)
            return;
        level->m_isLeft = true;
        if (level == this)
            m_loop.leave();
    }

private:
    qt::LoopLevel m_loop;
    Level* m_outer;
    bool m_isLeft;
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
