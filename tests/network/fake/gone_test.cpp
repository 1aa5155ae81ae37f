// Services that are not there, go away, or hang: no opening waits for ever, and none ends twice.
#include "network/fake/fake_test.h"

using namespace linktest;
using namespace fakebus;

namespace {

class Gone : public FakeTest
{
protected:
    // The opening that is under way fails, with this cause, and nothing more comes of it.
    void expectFailure(Receiver& receiver, int cause)
    {
        Message message = next(receiver);
        EXPECT_EQ(message.type, NAPI_IND_OPEN_FAILED);
        EXPECT_EQ(message.cause, cause);
        rest();
        if (auto more = receiver.ready())
            ADD_FAILURE() << "told again: " << *more;
    }
};

TEST_F(Gone, BusFailsEveryOpening)
{
    nm.reset();
    mm.reset();
    bus.reset();
    Receiver receiver;
    for (int round = 0; round < 3; ++round) {
        NAPI_OpenLink("Home");
        expectFailure(receiver, NAPI_CAUSE_NO_SERVICE_DAEMON);
    }
}

TEST_F(Gone, BusThatComesBackIsUsedAgain)
{
    nm.reset();
    mm.reset();
    bus.reset();
    Receiver receiver;
    NAPI_OpenLink("Home");
    expectFailure(receiver, NAPI_CAUSE_NO_SERVICE_DAEMON);
    bus = std::make_unique<PrivateBus>(root());
    nm = std::make_unique<NetworkManager>();
    mm = std::make_unique<ModemManager>();
    NAPI_OpenLink("Home");
    EXPECT_EQ(next(receiver), connectedHere(0));
}

TEST_F(Gone, NetworkManagerFailsTheOpening)
{
    nm.reset();
    Receiver receiver;
    NAPI_OpenLink("Home");
    expectFailure(receiver, NAPI_CAUSE_NO_SERVICE_DAEMON);
}

TEST_F(Gone, ModemManagerLeavesTheReasonOfTheDevice)
{
    mm.reset();
    nm->onActivate = [this] { nm->fail(1); };
    Receiver receiver;
    NAPI_OpenLink("Home");
    EXPECT_EQ(next(receiver), failed(0, 65535, 0x101));
}

TEST_F(Gone, ModemLeavesNothingToCarryPacketData)
{
    nm->service.remove(modemDevice);
    nm->service.change(nmPath, nmService, "Devices", paths({wiredDevice}));
    Receiver receiver;
    NAPI_OpenLink("Home");
    expectFailure(receiver, NAPI_CAUSE_NO_BEARER);
}

// The members that a service may be killed at; each ends the opening, whether the service answers
// them or not.
TEST_F(Gone, NetworkManagerAtEachCallOfAnOpeningFailsIt)
{
    Receiver receiver;
    up(receiver);
    std::vector<std::string> members = nm->service.calls();
    EXPECT_EQ(NAPI_CloseLink(0), 0);
    rest();
    members.push_back("GetAll");
    members.push_back("GetManagedObjects");
    for (const std::string& member : members) {
        SCOPED_TRACE(member);
        restartNetworkManager();
        bool killed = false;
        nm->service.on(member, [&](sd_bus_message*) {
            killed = true;
            return 0;
        });
        NAPI_OpenLink("Home");
        if (!until([&] { return killed; }, Milliseconds(500)) || !nm->service.isThere()) {
            // This opening does not need the call.
            next(receiver);
            NAPI_CloseLink(0);
            rest();
            continue;
        }
        nm.reset();
        expectFailure(receiver, NAPI_CAUSE_NO_SERVICE_DAEMON);
    }
}

TEST_F(Gone, NetworkManagerAtEachStepOfADiallingFailsIt)
{
    Receiver receiver;
    for (uint32_t state : {Prepare, Config, NeedAuth, IpConfig, IpCheck, Secondaries}) {
        SCOPED_TRACE(state);
        restartNetworkManager();
        bool there = false;
        nm->onActivate = [&] {
            nm->deviceState(state);
            there = true;
        };
        NAPI_OpenLink("Home");
        ASSERT_TRUE(until([&] { return there; }));
        nm.reset();
        expectFailure(receiver, NAPI_CAUSE_NO_SERVICE_DAEMON);
    }
}

TEST_F(Gone, NetworkManagerDuringACloseCostsNothing)
{
    Receiver receiver;
    int link = up(receiver);
    nm->service.silence("DeactivateConnection");
    EXPECT_EQ(NAPI_CloseLink(link), 0);
    EXPECT_TRUE(until([this] { return nm->service.countOf("DeactivateConnection") == 1; }));
    nm = nullptr;
    rest();
    nm = std::make_unique<NetworkManager>();
    EXPECT_EQ(up(receiver), link);
}

TEST_F(Gone, BusDuringADiallingFailsIt)
{
    bool dialling = false;
    nm->onActivate = [&] { dialling = true; };
    Receiver receiver;
    NAPI_OpenLink("Home");
    ASSERT_TRUE(until([&] { return dialling; }));
    bus->kill();
    expectFailure(receiver, NAPI_CAUSE_NO_SERVICE_DAEMON);
}

TEST_F(Gone, ProgramThatEndsItsNetworkApiWhileDiallingLeavesNoConnection)
{
    bool dialling = false;
    nm->onActivate = [&] { dialling = true; };
    {
        Receiver receiver;
        NAPI_OpenLink("Home");
        ASSERT_TRUE(until([&] { return dialling; }));
    }
    // The connection ends with our name on the bus, as the real service does it, or by our call.
    EXPECT_TRUE(until([&] { return nm->living() == 0; }, Milliseconds(2000)) ||
                nm->options().at("bind-activation") == "dbus-client");
    nm.reset();
}

} // namespace
