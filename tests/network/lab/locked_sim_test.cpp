// A SIM that waits for a number from its owner: an opening says so instead of waiting with it.
#include "network/lab/lab_world.h"

using namespace linktest;
using namespace labtest;

namespace {

class LockedSim : public ModemTest
{
protected:
    // What the opening fails with, or 0 where it connects.
    static int causeOfAnOpening()
    {
        Receiver receiver;
        int link = NAPI_OpenLink("Home");
        auto message = within(Milliseconds(6000), receiver);
        NAPI_CloseLink(link);
        return message ? message->cause : -1;
    }

    // What the owner types; wrong numbers are refused.
    static void type(const std::string& numbers) { output("mmcli --sim any " + numbers + " 2>&1"); }

    static bool isUnlocked()
    {
        return until([] { return stateOf("ttyHS0") == 30 && isRegistered(); });
    }
    static bool isRegistered()
    {
        return output("mmcli --modem any --output-keyvalue | grep generic.state ")
                   .find("registered") != std::string::npos;
    }
};

class LockedSimPin : public LockedSim
{};
class LockedSimPuk : public LockedSim
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

// The last one of its laboratory, in which the SIM is open from then on.
TEST_F(LockedSimPin, ThatIsGivenLetsTheNextOpeningConnect)
{
    configure(R"({"bearer": "networkmanager", "guards": {"secretMs": 500}})");
    type("--pin=9999");
    EXPECT_EQ(causeOfAnOpening(), NAPI_CAUSE_SIM) << "the number was wrong";
    type("--pin=1234");
    ASSERT_TRUE(isUnlocked());
    EXPECT_EQ(causeOfAnOpening(), NAPI_CAUSE_NONE);
}

TEST_F(LockedSimPuk, ThatIsGivenLetsTheNextOpeningConnect)
{
    type("--puk=11111111 --pin=1234");
    EXPECT_EQ(causeOfAnOpening(), NAPI_CAUSE_SIM) << "the number was wrong";
    type("--puk=12345678 --pin=1234");
    ASSERT_TRUE(isUnlocked());
    EXPECT_EQ(causeOfAnOpening(), NAPI_CAUSE_NONE);
}

} // namespace
