// Closing and cancelling: at once for the program, and no connection is left on the service.
#include <thread>

#include "network/fake/fake_test.h"

using namespace linktest;
using namespace fakebus;

namespace {

class Close : public FakeTest
{};

TEST_F(Close, TakesTheConnectionDown)
{
    Receiver receiver;
    int link = up(receiver);
    EXPECT_EQ(nm->living(), 1u);
    EXPECT_EQ(NAPI_CloseLink(link), 0);
    EXPECT_TRUE(until([this] { return nm->living() == 0; }));
    rest();
    EXPECT_FALSE(receiver.ready());
}

TEST_F(Close, BeforeTheReplyTakesTheConnectionDownOnceItIsKnown)
{
    Receiver receiver;
    // The call has gone out, but nobody has looked at it.
    int link = NAPI_OpenLink("Home");
    std::this_thread::sleep_for(Milliseconds(20));
    EXPECT_EQ(NAPI_CloseLink(link), 0);
    rest(Milliseconds(100));
    EXPECT_EQ(nm->living(), 0u);
    EXPECT_FALSE(receiver.ready());
}

TEST_F(Close, AtEachStepOfADiallingSwallowsWhatTheServiceStillSays)
{
    Receiver receiver;
    for (uint32_t state : {Prepare, Config, NeedAuth, IpConfig, IpCheck, Secondaries}) {
        SCOPED_TRACE(state);
        bool there = false;
        nm->onActivate = [&] {
            nm->deviceState(state);
            there = true;
        };
        int link = NAPI_OpenLink("Home");
        EXPECT_EQ(link, 0);
        ASSERT_TRUE(until([&] { return there; }));
        EXPECT_EQ(NAPI_CloseLink(link), 0);
        EXPECT_TRUE(until([this] { return nm->living() == 0; }));
        rest(Milliseconds(5));
        EXPECT_FALSE(receiver.ready());
    }
}

TEST_F(Close, GivesTheIdBackForTheNextOpeningAtOnce)
{
    Receiver receiver;
    nm->onActivate = [this] { nm->deviceState(Prepare); };
    EXPECT_EQ(NAPI_OpenLink("Home"), 0);
    EXPECT_TRUE(until([this] { return nm->living() == 1; }));
    EXPECT_EQ(NAPI_CloseLink(0), 0);
    nm->onActivate = [this] { nm->connect(); };
    EXPECT_EQ(NAPI_OpenLink("Home"), 0);
    EXPECT_EQ(next(receiver), connectedHere(0));
    EXPECT_EQ(nm->living(), 1u);
}

TEST_F(Close, ReturnsAtOnceWhileTheServiceHangs)
{
    Receiver receiver;
    NAPI_OpenLink("Home");
    auto before = std::chrono::steady_clock::now();
    EXPECT_EQ(NAPI_CloseLink(0), 0);
    EXPECT_LT(std::chrono::steady_clock::now() - before, Milliseconds(500));
}

// A modem stays connected when NetworkManager starts anew, which knows nothing of the call.
TEST_F(Close, AfterARestartOfNetworkManagerHangsUpWithItsProgram)
{
    Receiver receiver;
    int link = up(receiver);
    restartNetworkManager();
    rest(Milliseconds(100));
    EXPECT_EQ(NAPI_CloseLink(link), 0);
    receiver.hangUp();
    EXPECT_TRUE(until([this] { return mm->service.countOf("Disconnect") == 1; }));
}

TEST_F(Close, HundredTimesAtRandomMomentsLeavesNothing)
{
    Receiver receiver;
    for (int round = 0; round < 100; ++round) {
        int link = NAPI_OpenLink("Home");
        ASSERT_EQ(link, 0);
        rest(Milliseconds(round % 7));
        NAPI_CloseLink(link);
        while (receiver.ready()) {
        }
    }
    EXPECT_TRUE(until([this] { return nm->living() == 0; }));
}

} // namespace
