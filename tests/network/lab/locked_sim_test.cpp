// A SIM that waits for a number from its owner: an opening says so instead of waiting with it.
#include "network/lab/lab_world.h"

using namespace linktest;
using namespace labtest;

namespace {

class LockedSim : public ModemTest
{};

TEST_F(LockedSim, FailsTheOpeningWithinFiveSeconds)
{
    Receiver receiver;
    int link = NAPI_OpenLink("Home");
    auto message = within(Milliseconds(6000), receiver);
    ASSERT_TRUE(message);
    EXPECT_EQ(message->type, NAPI_IND_OPEN_FAILED);
    EXPECT_EQ(message->link, link);
    EXPECT_EQ(message->cause, NAPI_CAUSE_SIM);
    EXPECT_FALSE(got("AT+CPIN=")) << "a wrong number would cost the owner a try";
    EXPECT_TRUE(until([] { return stateOf("ttyHS0") == 30; }));
}

} // namespace
