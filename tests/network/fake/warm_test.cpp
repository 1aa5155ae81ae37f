// What is known of a device spares questions, for as long as nothing has happened to it.
#include "network/fake/fake_test.h"

using namespace linktest;
using namespace fakebus;

namespace {

const char* const deviceInterface = "org.freedesktop.NetworkManager.Device";

class Warm : public FakeTest
{
protected:
    void SetUp() override
    {
        FakeTest::SetUp();
        nm->service.on("GetManagedObjects", [this](sd_bus_message* call) {
            ++m_listings;
            return nm->service.answerManaged(call);
        });
    }

    // How often NetworkManager was asked for everything while a link opened.
    int listingsOfAnOpening(Receiver& receiver, const char* profile = "Home")
    {
        int before = m_listings;
        int link = up(receiver, profile);
        if (m_modemTells)
            modemState(11, 8);
        NAPI_CloseLink(link);
        EXPECT_TRUE(until([this] { return nm->living() == 0; }));
        rest();
        return m_listings - before;
    }

    // The modem tells its states, as the real one does.
    void tellOfTheModem() { m_modemTells = true; }

    void modemState(int before, int now)
    {
        mm->service.emit(modemPath, "org.freedesktop.ModemManager1.Modem", "StateChanged",
                         [=](sd_bus_message* message) {
                             return sd_bus_message_append(message, "iiu", before, now, 1);
                         });
    }

private:
    bool m_modemTells = false;
    int m_listings = 0;
};

TEST_F(Warm, DeviceThatIsFreeIsActivatedWithoutAQuestion)
{
    tellOfTheModem();
    Receiver receiver;
    EXPECT_EQ(listingsOfAnOpening(receiver), 1);
    EXPECT_EQ(listingsOfAnOpening(receiver), 0);
    EXPECT_EQ(listingsOfAnOpening(receiver), 0);
}

TEST_F(Warm, WireThatIsFreeIsActivatedWithoutAQuestion)
{
    configure(R"({"bearer": "networkmanager", "interfaces": {"wifi": "eth9"}})");
    store("Wire", wifiProfile());
    kernel->add("eth9", "10.99.0.2");
    nm->interface = "eth9";
    Receiver receiver;
    EXPECT_EQ(listingsOfAnOpening(receiver, "Wire"), 1);
    EXPECT_EQ(listingsOfAnOpening(receiver, "Wire"), 0);
}

// Somebody who has switched the modem off meanwhile finds it off.
TEST_F(Warm, ModemThatWasSwitchedOffMeanwhileIsAskedAbout)
{
    tellOfTheModem();
    Receiver receiver;
    listingsOfAnOpening(receiver);
    modemState(8, 3);
    mm->service.objects[modemPath]["org.freedesktop.ModemManager1.Modem"]["PowerState"] = number(2);
    rest();
    NAPI_OpenLink("Home");
    EXPECT_EQ(next(receiver), failed(0, NAPI_CAUSE_NO_SERVICE, 0x300 + ERFKILL));
    EXPECT_EQ(nm->service.countOf("AddAndActivateConnection2"), 1u);
}

TEST_F(Warm, ModemOfWhichNothingWasHeardIsAskedAbout)
{
    Receiver receiver;
    listingsOfAnOpening(receiver);
    EXPECT_EQ(listingsOfAnOpening(receiver), 1);
}

TEST_F(Warm, DeviceThatSomebodyHasTakenMeanwhileIsNotTakenFromHim)
{
    tellOfTheModem();
    Receiver receiver;
    listingsOfAnOpening(receiver);
    nm->service.change(modemDevice, deviceInterface, "State", number(Activated));
    rest();
    NAPI_OpenLink("Home");
    EXPECT_EQ(next(receiver).cause, NAPI_CAUSE_BUSY);
    EXPECT_EQ(nm->service.countOf("AddAndActivateConnection2"), 1u);
    nm->service.change(modemDevice, deviceInterface, "State", number(Disconnected));
}

TEST_F(Warm, DeviceThatIsRefusedIsAskedAboutBeforeItIsGivenUp)
{
    tellOfTheModem();
    Receiver receiver;
    listingsOfAnOpening(receiver);
    nm->service.refuse("AddAndActivateConnection2", "org.freedesktop.NetworkManager.UnknownDevice");
    nm->service.remove(modemDevice);
    NAPI_OpenLink("Home");
    EXPECT_EQ(next(receiver).cause, NAPI_CAUSE_NO_BEARER);
}

TEST_F(Warm, NothingIsKnownOfAServiceThatWasStartedAnew)
{
    tellOfTheModem();
    Receiver receiver;
    listingsOfAnOpening(receiver);
    restartNetworkManager();
    rest();
    EXPECT_EQ(up(receiver), 0);
    EXPECT_EQ(nm->device(), modemDevice);
}

TEST_F(Warm, NothingIsKnownBeyondTheEndOfTheNetworkApi)
{
    tellOfTheModem();
    {
        Receiver receiver;
        EXPECT_EQ(listingsOfAnOpening(receiver), 1);
    }
    Receiver receiver;
    EXPECT_EQ(listingsOfAnOpening(receiver), 1);
}

// A link comes up with what the signals have told, although no question is answered.
TEST_F(Warm, AddressIsTakenFromTheSignals)
{
    tellOfTheModem();
    Receiver receiver;
    listingsOfAnOpening(receiver);
    nm->service.silence("GetAll");
    bool there = false;
    nm->onActivate = [&] {
        nm->connect();
        there = true;
    };
    NAPI_OpenLink("Home");
    ASSERT_TRUE(until([&] { return there; }));
    // The engine hears of the object that has the address, and then listens to it.
    std::optional<Message> message;
    for (int round = 0; round < 20 && !message; ++round) {
        nm->service.change("/org/freedesktop/NetworkManager/IP4Config/1",
                           "org.freedesktop.NetworkManager.IP4Config", "AddressData",
                           nm->addressData);
        message = within(Milliseconds(40), receiver);
    }
    ASSERT_TRUE(message);
    EXPECT_EQ(*message, connectedHere(0));
}

// A program that wants WiFi does not wait for the service of the modems.
TEST_F(Warm, LinkThatNeedsNoModemDoesNotAskForModems)
{
    configure(R"({"bearer": "networkmanager", "interfaces": {"wifi": "eth9"}})");
    store("Wire", wifiProfile());
    kernel->add("eth9", "10.99.0.2");
    nm->interface = "eth9";
    mm->service.silence("GetManagedObjects");
    Receiver receiver;
    up(receiver, "Wire");
}

} // namespace
