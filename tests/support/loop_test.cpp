#include "support/loop.h"

#include <string>
#include <vector>

#include <fcntl.h>
#include <unistd.h>

#include <qapplication.h>
#include <qevent.h>
#include <qsocketnotifier.h>

#include <gtest/gtest.h>

#include "support/guarded.h"
#include "support/later.h"
#include "support/qt.h"

using namespace support;

namespace {

typedef std::vector<std::string> Trace;

// An object that runs a level, as a dialog does.
class Runner : public QObject
{
public:
    // Whether the object was still there when its level had returned.
    bool run()
    {
        Guarded<Runner> self(this);
        enterLoop();
        return !self.isNull();
    }
};

// A dialog of the toolkit: it runs a loop that the helpers know nothing of.
class Dialog
{
public:
    ~Dialog() { delete m_timer.get(); }

    int exec()
    {
        m_loop.run();
        return 7;
    }

    // Has somebody end the dialog after so many milliseconds, if it is there by then.
    void endAfter(int milliseconds)
    {
        m_timer = new Later(milliseconds, [this] { m_loop.leave(); });
    }

private:
    qt::LoopLevel m_loop;
    Guarded<Later> m_timer;
};

// Enters a level, which fails where nothing has left it after five seconds.
void enterLoopOfATest()
{
    const Guarded<Later> giveUp = new Later(5000, [] {
        ADD_FAILURE() << "the level goes on";
        qt::LoopLevel().leave();
    });
    enterLoop();
    delete giveUp.get();
}

// Takes one byte for each activation.
class ByteReader : public QSocketNotifier
{
public:
    ByteReader(int descriptor)
        : QSocketNotifier(descriptor, QSocketNotifier::Read, nullptr), m_source(descriptor)
    {}

    int taken = 0;

protected:
    bool event(QEvent* event) override
    {
        char byte;
        if (event->type() == QEvent::SockAct && read(m_source, &byte, 1) == 1)
            ++taken;
        return QSocketNotifier::event(event);
    }

private:
    int m_source;
};

} // namespace

TEST(EnterLoop, ServesEventsUntilItIsLeft)
{
    Trace trace;
    later(0, [&] { trace.push_back("served"); });
    later(0, [] { exitLoop(); });
    enterLoop();
    EXPECT_EQ(Trace{"served"}, trace);
}

TEST(EnterLoop, ReturnsOnlyWhenTheLeavingSlotHas)
{
    Trace trace;
    later(0, [&] {
        exitLoop();
        trace.push_back("end of the slot");
    });
    enterLoop();
    trace.push_back("returned");
    EXPECT_EQ((Trace{"end of the slot", "returned"}), trace);
}

TEST(EnterLoop, ReturnsTheLevelEnteredLastFirst)
{
    Trace trace;
    later(0, [&] {
        later(0, [&] {
            trace.push_back("leave inner");
            exitLoop();
        });
        enterLoop();
        trace.push_back("inner returned");
        later(0, [&] {
            trace.push_back("leave outer");
            exitLoop();
        });
    });
    enterLoop();
    trace.push_back("outer returned");
    EXPECT_EQ((Trace{"leave inner", "inner returned", "leave outer", "outer returned"}), trace);
}

TEST(ExitLoop, TwiceInOneSlotLeavesTheInnermostLevelAndTheOneAroundIt)
{
    Trace trace;
    later(0, [&] {
        later(0, [&] {
            later(0, [] {
                exitLoop();
                exitLoop();
            });
            enterLoop();
            trace.push_back("inner returned");
        });
        enterLoop();
        trace.push_back("middle returned");
        later(0, [&] {
            trace.push_back("outer still serves");
            exitLoop();
        });
    });
    enterLoop();
    EXPECT_EQ((Trace{"inner returned", "middle returned", "outer still serves"}), trace);
}

TEST(ExitLoop, MoreOftenThanThereAreLevelsDoesNotShortenTheNextOne)
{
    Trace trace;
    later(0, [] {
        exitLoop();
        exitLoop();
        exitLoop();
    });
    enterLoop();
    later(0, [&] { trace.push_back("served"); });
    later(1, [] { exitLoop(); });
    enterLoop();
    EXPECT_EQ(Trace{"served"}, trace);
}

TEST(ExitLoop, WithoutALevelDoesNotShortenTheNextOne)
{
    Trace trace;
    exitLoop();
    exitLoop();
    later(0, [&] { trace.push_back("served"); });
    later(1, [] { exitLoop(); });
    enterLoop();
    EXPECT_EQ(Trace{"served"}, trace);
}

TEST(ExitLoop, WithoutALevelLeavesPendingEventsToBeProcessed)
{
    int calls = 0;
    exitLoop();
    later(0, [&] { ++calls; });
    for (int passes = 0; passes < 100000 && calls == 0; ++passes)
        processPending();
    EXPECT_EQ(calls, 1);
}

TEST(ExitLoop, FollowedByEnterInOneSlotLeavesTheOuterLevelAfterTheInner)
{
    Trace trace;
    later(0, [&] {
        exitLoop();
        later(0, [&] {
            trace.push_back("inner serves");
            exitLoop();
        });
        enterLoop();
        trace.push_back("inner returned");
    });
    enterLoop();
    trace.push_back("outer returned");
    EXPECT_EQ((Trace{"inner serves", "inner returned", "outer returned"}), trace);
}

TEST(EnterLoop, OutlivesTheObjectThatRunsIt)
{
    Runner* const runner = new Runner;
    later(0, [runner] { delete runner; });
    later(1, [] { exitLoop(); });
    EXPECT_FALSE(runner->run());
}

TEST(EnterLoop, LeavesALivingObjectToItsCaller)
{
    Runner runner;
    later(0, [] { exitLoop(); });
    EXPECT_TRUE(runner.run());
}

TEST(RunDialog, LetsTheLevelReturnThatIsLeftWhileTheDialogIsUp)
{
    Trace trace;
    later(0, [&] {
        Dialog dialog;
        later(0, [] { exitLoop(); });
        dialog.endAfter(20);
        EXPECT_EQ(runDialog(dialog), 7);
        trace.push_back("dialog ended");
    });
    enterLoopOfATest();
    trace.push_back("level returned");
    EXPECT_EQ((Trace{"dialog ended", "level returned"}), trace);
}

TEST(RunDialog, LetsTheLevelReturnThatIsLeftWhileOneDialogLiesOverAnother)
{
    Trace trace;
    later(0, [&] {
        Dialog lower;
        later(0, [&] {
            Dialog upper;
            later(0, [] { exitLoop(); });
            upper.endAfter(20);
            runDialog(upper);
            trace.push_back("upper ended");
        });
        lower.endAfter(40);
        runDialog(lower);
        trace.push_back("lower ended");
    });
    enterLoopOfATest();
    EXPECT_EQ((Trace{"upper ended", "lower ended"}), trace);
}

TEST(RunDialog, LeavesALevelThatNobodyHasLeft)
{
    Trace trace;
    later(0, [&] {
        Dialog dialog;
        dialog.endAfter(0);
        runDialog(dialog);
        later(0, [&] {
            trace.push_back("level still serves");
            exitLoop();
        });
    });
    enterLoopOfATest();
    EXPECT_EQ(Trace{"level still serves"}, trace);
}

TEST(RunDialog, NeedsNoLevel)
{
    Dialog dialog;
    dialog.endAfter(0);
    EXPECT_EQ(runDialog(dialog), 7);
}

TEST(ProcessPending, DoesNotWaitForWhatIsNotDue)
{
    bool due = false;
    Later* const timer = new Later(60000, [&] { due = true; });
    processPending();
    EXPECT_FALSE(due);
    delete timer;
}

TEST(ProcessPending, MakesOnePassOnly)
{
    int pipe[2];
    ASSERT_EQ(pipe2(pipe, O_NONBLOCK), 0);
    ASSERT_EQ(write(pipe[1], "12345", 5), 5);
    {
        ByteReader reader(pipe[0]);
        for (int passes = 1; passes <= 5; ++passes) {
            processPending();
            EXPECT_EQ(passes, reader.taken);
        }
    }
    close(pipe[0]);
    close(pipe[1]);
}

// The last tests of loops: on Qt 2, nested levels end too early once exec() has returned.
TEST(QuittingApplication, IsNotWhatExitLoopDoesAtTheLevelOfExec)
{
    Trace trace;
    later(0, [&] {
        exitLoop();
        later(0, [&] {
            trace.push_back("exec still serves");
            qApp->exit(7);
        });
    });
    EXPECT_EQ(qApp->exec(), 7);
    EXPECT_EQ(Trace{"exec still serves"}, trace);
}

TEST(QuittingApplication, ReturnsFromEachLevel)
{
    Trace trace;
    later(0, [&] {
        later(0, [&] {
            later(0, [] { qApp->exit(5); });
            enterLoop();
            trace.push_back("inner returned");
        });
        enterLoop();
        trace.push_back("outer returned");
    });
    EXPECT_EQ(qApp->exec(), 5);
    EXPECT_EQ((Trace{"inner returned", "outer returned"}), trace);
}
