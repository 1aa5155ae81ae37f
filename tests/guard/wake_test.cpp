// Waking the loop of Qt 2, where leaving it from another thread goes unnoticed while it waits.
#include <atomic>
#include <chrono>
#include <thread>

#include <gtest/gtest.h>

#include <qapplication.h>

#include "eventsources.h"
#include "support/later.h"
#include "support/loop.h"

using namespace std::chrono_literals;

namespace {

std::atomic<bool> isOver = false;

// Waits until the loop has begun to wait once more since there were `before` waits.
void nextWait(int before)
{
    while (eventsources::waits() == before && !isOver)
        std::this_thread::yield();
}

// Enters a level that only `other`, on a thread of its own, can end before twenty seconds are over.
// Returns whether it has.
template <typename Other> bool endsLevel(Other other)
{
    isOver = false;
    Later* const giveUp = new Later(20000, [] {
        isOver = true;
        support::exitLoop();
    });
    const int before = eventsources::waits();
    std::thread thread([&] {
        nextWait(before);
        other();
    });
    support::enterLoop();
    thread.join();
    if (!isOver)
        delete giveUp;
    return !isOver;
}

} // namespace

TEST(WakeLoopOnQt2, EndsAWaitFromAnotherThread)
{
    EXPECT_TRUE(endsLevel([] {
        qApp->exit_loop();
        support::wakeLoop();
    }));
}

TEST(WakeLoopOnQt2, IsWhatTheLevelHasWaitedFor)
{
    const int before = eventsources::waits();
    int waitsUntilWoken = 0;
    EXPECT_TRUE(endsLevel([&] {
        qApp->exit_loop();
        std::this_thread::sleep_for(100ms);
        waitsUntilWoken = eventsources::waits() - before;
        support::wakeLoop();
    }));
    EXPECT_EQ(waitsUntilWoken, 1);
    EXPECT_EQ(eventsources::waits() - before, 1);
}

TEST(WakeLoopOnQt2, LetsTheLevelGoOnWhenNothingElseHasCome)
{
    const int before = eventsources::waits();
    EXPECT_TRUE(endsLevel([&] {
        for (int woken = 1; woken <= 50; ++woken) {
            support::wakeLoop();
            nextWait(before + woken);
        }
        qApp->exit_loop();
        support::wakeLoop();
    }));
    EXPECT_EQ(eventsources::waits() - before, 51);
}
