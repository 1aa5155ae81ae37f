// WiFi, which no machine can play without a radio: what the machine knows is joined, and packet
// data follows where the profile says so.
#include <cerrno>

#include "network/fake/fake_test.h"

using namespace linktest;
using namespace fakebus;

namespace {

const char* const deviceInterface = "org.freedesktop.NetworkManager.Device";

class Wifi : public FakeTest
{
protected:
    void SetUp() override
    {
        FakeTest::SetUp();
        store("Wireless", wifiProfile());
        NetworkProfile both = packetProfile();
        both.flags = NAPI_PREFER_WIFI_THEN_CELLULAR;
        store("Both", both);
        kernel->add("wlan0", "10.99.0.2");
        nm->interface = "wlan0";
    }

    Value& ofWifi(const char* property)
    {
        return nm->service.objects[wifiDevice][deviceInterface][property];
    }

    void switchOff(const char* property)
    {
        nm->service.objects[nmPath][nmService][property] = flag(false);
    }

    // The WiFi becomes what a test says, and the modem connects.
    void afterWifi(const std::function<void()>& becomes)
    {
        nm->onActivate = [this, becomes] {
            if (nm->device() == wifiDevice)
                return becomes();
            nm->interface = "hso0";
            nm->connect();
        };
    }

    static Message connectedByWifi(int link)
    {
        return connected(link, "wlan0", 0x0A630002, NAPI_BEARER_WIFI);
    }
};

TEST_F(Wifi, JoinsWhatTheMachineKnows)
{
    Receiver receiver;
    NAPI_OpenLink("Wireless");
    EXPECT_EQ(next(receiver), connectedByWifi(0));
    EXPECT_EQ(nm->device(), wifiDevice);
    EXPECT_EQ(nm->service.countOf("ActivateConnection"), 1u);
    EXPECT_EQ(nm->service.countOf("AddAndActivateConnection2"), 0u);
}

TEST_F(Wifi, WithoutAKnownNetworkIsNoService)
{
    ofWifi("AvailableConnections") = paths({});
    Receiver receiver;
    NAPI_OpenLink("Wireless");
    EXPECT_EQ(next(receiver), failed(0, NAPI_CAUSE_NO_SERVICE, 0));
}

TEST_F(Wifi, ThatIsSwitchedOffStaysOff)
{
    switchOff("WirelessEnabled");
    Receiver receiver;
    NAPI_OpenLink("Wireless");
    EXPECT_EQ(next(receiver), failed(0, NAPI_CAUSE_NO_SERVICE, 0x300 + ERFKILL));
    EXPECT_EQ(nm->service.countOf("ActivateConnection"), 0u);
}

TEST_F(Wifi, ThatCannotBeJoinedIsItsOwnCause)
{
    Receiver receiver;
    for (uint32_t reason : {8u, 9u, 10u, 11u, 53u}) {
        SCOPED_TRACE(reason);
        nm->onActivate = [&] { nm->fail(reason); };
        NAPI_OpenLink("Wireless");
        EXPECT_EQ(next(receiver), failed(0, NAPI_CAUSE_WIFI, 0x100 + int(reason)));
    }
}

TEST_F(Wifi, ThatIsUpIsSharedAndLeftUp)
{
    Receiver receiver;
    NAPI_OpenLink("Wireless");
    EXPECT_EQ(next(receiver), connectedByWifi(0));
    NAPI_OpenLink("Wireless");
    EXPECT_EQ(next(receiver), connectedByWifi(1));
    EXPECT_EQ(NAPI_CloseLink(1), 0);
    rest();
    EXPECT_EQ(nm->living(), 1u);
    EXPECT_EQ(nm->service.countOf("ActivateConnection"), 1u);
}

TEST_F(Wifi, ComesBeforePacketDataWhereTheProfileSaysSo)
{
    afterWifi([this] { nm->connect(); });
    Receiver receiver;
    NAPI_OpenLink("Both");
    EXPECT_EQ(next(receiver), connectedByWifi(0));
    EXPECT_EQ(nm->living(), 1u);
}

TEST_F(Wifi, ThatFailsIsFollowedByPacketData)
{
    Receiver receiver;
    afterWifi([this] { nm->fail(53); });
    NAPI_OpenLink("Both");
    EXPECT_EQ(next(receiver), connectedHere(0));
    EXPECT_EQ(NAPI_CloseLink(0), 0);
    switchOff("WirelessEnabled");
    NAPI_OpenLink("Both");
    EXPECT_EQ(next(receiver), connectedHere(0));
    rest();
    EXPECT_FALSE(receiver.ready());
}

TEST_F(Wifi, ThatFailsBeforePacketDataFailsTellsTheLastCause)
{
    nm->onActivate = [this] { nm->fail(nm->device() == wifiDevice ? 53 : 29); };
    Receiver receiver;
    NAPI_OpenLink("Both");
    EXPECT_EQ(next(receiver), failed(0, NAPI_CAUSE_SUBSCRIPTION, 0x100 + 29));
    rest();
    EXPECT_FALSE(receiver.ready());
}

TEST_F(Wifi, DoesNotStandInForADialledCall)
{
    store("Called", dialledProfile());
    Receiver receiver;
    NAPI_OpenLink("Called");
    EXPECT_EQ(next(receiver), failed(0, NAPI_CAUSE_NOT_SUPPORTED, 0));
    EXPECT_EQ(nm->service.countOf("ActivateConnection"), 0u);
}

} // namespace
