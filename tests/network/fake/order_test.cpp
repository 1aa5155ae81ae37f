// One outcome for each opening, in whatever order the service tells things.
#include <algorithm>
#include <random>

#include "network/fake/fake_test.h"

using namespace linktest;
using namespace fakebus;

namespace {

class Order : public FakeTest
{
protected:
    // The outcome of an opening during which the steps were told in this order.
    Message outcome(Receiver& receiver, const std::vector<std::function<void()>>& steps)
    {
        nm->onActivate = [&] {
            for (const auto& step : steps)
                step();
        };
        NAPI_OpenLink("Home");
        return next(receiver);
    }
};

TEST_F(Order, OfSignalsDoesNotChangeThatAFailureIsToldOnce)
{
    std::vector<std::function<void()>> steps = {
        [this] { nm->deviceState(Prepare); },     [this] { nm->deviceState(Config); },
        [this] { nm->deviceState(IpConfig); },    [this] { nm->deviceState(Failed, 5); },
        [this] { nm->activeState(Activating); },  [this] { nm->activeState(ActiveGone, 3); },
        [this] { nm->deviceState(Disconnected); }};
    std::mt19937 random(20260729);
    Receiver receiver;
    for (int round = 0; round < 40; ++round) {
        std::shuffle(steps.begin(), steps.end(), random);
        Message message = outcome(receiver, steps);
        EXPECT_EQ(message.type, NAPI_IND_OPEN_FAILED) << "round " << round;
        EXPECT_EQ(message.link, 0) << "round " << round;
        rest(Milliseconds(5));
        EXPECT_FALSE(receiver.ready()) << "round " << round;
    }
}

// In whatever order a success is told, it is one, and nothing stays of it.
TEST_F(Order, OfASuccessDoesNotChangeThatOneOutcomeIsTold)
{
    nm->service.objects["/org/freedesktop/NetworkManager/IP4Config/1"]
                       ["org.freedesktop.NetworkManager.IP4Config"] = {
        {"AddressData", nm->addressData},
        {"Gateway", text("10.99.0.1")},
        {"NameserverData", addresses({"10.99.0.1"})}};
    const char* const device = "org.freedesktop.NetworkManager.Device";
    std::vector<std::function<void()>> steps = {
        [this] { nm->deviceState(Prepare); },
        [this] { nm->deviceState(IpConfig); },
        [this] { nm->deviceState(IpCheck); },
        [this] { nm->deviceState(Activated); },
        [this] { nm->activeState(ActiveUp); },
        [&] { nm->service.change(modemDevice, device, "IpInterface", text("hso0")); },
        [&] {
            nm->service.change(modemDevice, device, "Ip4Config",
                               path("/org/freedesktop/NetworkManager/IP4Config/1"));
        }};
    std::mt19937 random(20261121);
    Receiver receiver;
    for (int round = 0; round < 40; ++round) {
        SCOPED_TRACE(round);
        std::shuffle(steps.begin(), steps.end(), random);
        Message message = outcome(receiver, steps);
        EXPECT_EQ(message, connectedHere(0));
        rest(Milliseconds(5));
        EXPECT_FALSE(receiver.ready());
        EXPECT_EQ(NAPI_CloseLink(0), 0);
        EXPECT_TRUE(until([this] { return nm->living() == 0; }));
    }
}

TEST_F(Order, TakesAnAddressThatComesBehindTheState)
{
    Value real = nm->addressData;
    nm->addressData = addresses({});
    Receiver receiver;
    NAPI_OpenLink("Home");
    EXPECT_FALSE(within(Milliseconds(100), receiver));
    nm->service.change("/org/freedesktop/NetworkManager/IP4Config/1",
                       "org.freedesktop.NetworkManager.IP4Config", "AddressData", real);
    EXPECT_EQ(next(receiver), connectedHere(0));
}

TEST_F(Order, FailsWithoutAnAddress)
{
    nm->addressData = addresses({});
    Receiver receiver;
    NAPI_OpenLink("Home");
    Message message = next(receiver);
    EXPECT_EQ(message.type, NAPI_IND_OPEN_FAILED);
    EXPECT_EQ(message.cause, NAPI_CAUSE_NO_ADDRESS);
}

TEST_F(Order, IgnoresStatesThatNobodyKnows)
{
    nm->onActivate = [this] {
        nm->deviceState(65);
        nm->deviceState(4294967295u, 4294967295u);
        nm->activeState(17);
        nm->connect();
    };
    Receiver receiver;
    NAPI_OpenLink("Home");
    EXPECT_EQ(next(receiver), connectedHere(0));
}

TEST_F(Order, IgnoresOtherDevicesAndConnections)
{
    nm->onActivate = [this] {
        nm->service.emit(wiredDevice, "org.freedesktop.NetworkManager.Device", "StateChanged",
                         [](sd_bus_message* message) {
                             return sd_bus_message_append(message, "uuu", Failed, Prepare, 5);
                         });
        nm->service.emit("/org/freedesktop/NetworkManager/ActiveConnection/77",
                         "org.freedesktop.NetworkManager.Connection.Active", "StateChanged",
                         [](sd_bus_message* message) {
                             return sd_bus_message_append(message, "uu", ActiveGone, 3);
                         });
        nm->connect();
    };
    Receiver receiver;
    NAPI_OpenLink("Home");
    EXPECT_EQ(next(receiver), connectedHere(0));
    rest();
    EXPECT_FALSE(receiver.ready());
}

TEST_F(Order, HearsASignalThatComesBeforeTheReply)
{
    // The activation of somebody before us ends between our call and its reply.
    nm->onActivate = [this] { nm->connect(); };
    nm->service.emit(modemDevice, "org.freedesktop.NetworkManager.Device", "StateChanged",
                     [](sd_bus_message* message) {
                         return sd_bus_message_append(message, "uuu", Deactivating, Activated, 60);
                     });
    Receiver receiver;
    NAPI_OpenLink("Home");
    EXPECT_EQ(next(receiver), connectedHere(0));
}

TEST_F(Order, TellsABreakOnceHoweverOftenItIsTold)
{
    Receiver receiver;
    up(receiver);
    nm->activeState(ActiveGoing, 3);
    nm->deviceState(Deactivating, 39);
    nm->deviceState(Failed, 25);
    nm->activeState(ActiveGone, 3);
    nm->deviceState(Disconnected, 39);
    nm->service.remove(modemDevice);
    EXPECT_EQ(next(receiver), brokenHere(0));
    rest();
    EXPECT_FALSE(receiver.ready());
}

} // namespace
