// How a link that is up ends: told once, whatever took it away.
#include "network/fake/fake_test.h"

using namespace linktest;
using namespace fakebus;

namespace {

struct EndRow
{
    const char* name;
    std::function<void(NetworkManager&)> end;
};
const EndRow endRows[] = {
    {"DeactivatedBySomebody", [](NetworkManager& nm) { nm.breakWith(Disconnected, 39); }},
    {"CallDropped",
     [](NetworkManager& nm) {
         nm.deviceState(Failed, 25);
         nm.activeState(ActiveGone, 3);
     }},
    {"CarrierLost", [](NetworkManager& nm) { nm.breakWith(Unavailable, 40); }},
    {"ModemServiceGone",
     [](NetworkManager& nm) {
         nm.breakWith(Unmanaged, 36);
         nm.service.remove(modemDevice);
     }},
    {"DeviceUnplugged",
     [](NetworkManager& nm) {
         nm.service.remove(modemDevice);
         nm.service.emit(modemDevice, "org.freedesktop.NetworkManager.Device", "StateChanged",
                         [](sd_bus_message* message) {
                             return sd_bus_message_append(message, "uuu", 10, 100, 3);
                         });
         nm.activeState(ActiveGone, 3);
     }},
    {"LeaseNotRenewed",
     [](NetworkManager& nm) {
         nm.deviceState(Failed, 5);
         nm.activeState(ActiveGone, 3);
     }},
    {"ReplacedByAnother", [](NetworkManager& nm) { nm.breakWith(Disconnected, 60); }},
    {"ConnectionDeleted", [](NetworkManager& nm) { nm.breakWith(Disconnected, 38); }},
};
class BreakOf : public FakeTest, public testing::WithParamInterface<EndRow>
{};
TEST_P(BreakOf, ALinkIsToldOnce)
{
    Receiver receiver;
    int link = up(receiver);
    GetParam().end(*nm);
    EXPECT_EQ(next(receiver), brokenHere(link));
    rest();
    EXPECT_FALSE(receiver.ready());
    EXPECT_EQ(NAPI_CloseLink(link), 0);
}
INSTANTIATE_TEST_SUITE_P(All, BreakOf, testing::ValuesIn(endRows),
                         [](const auto& row) { return row.param.name; });

class Broken : public FakeTest
{};

TEST_F(Broken, IsALinkWhoseAddressIsTakenAway)
{
    Receiver receiver;
    int link = up(receiver);
    kernel->removeAddress("hso0", "10.99.0.2");
    EXPECT_EQ(next(receiver), brokenHere(link));
}

TEST_F(Broken, IsALinkWhoseInterfaceIsRemoved)
{
    Receiver receiver;
    int link = up(receiver);
    kernel->remove("hso0");
    EXPECT_EQ(next(receiver), brokenHere(link));
}

TEST_F(Broken, LinkCanBeOpenedAgain)
{
    Receiver receiver;
    int link = up(receiver);
    nm->breakWith(Disconnected, 39);
    EXPECT_EQ(next(receiver), brokenHere(link));
    EXPECT_EQ(NAPI_CloseLink(link), 0);
    EXPECT_EQ(up(receiver), link);
}

TEST_F(Broken, IsNotALinkWhoseBusIsGoneAsLongAsItsAddressIsThere)
{
    Receiver receiver;
    int link = up(receiver);
    bus->kill();
    rest();
    EXPECT_FALSE(receiver.ready());
    kernel->removeAddress("hso0", "10.99.0.2");
    EXPECT_EQ(next(receiver), brokenHere(link));
    EXPECT_EQ(NAPI_CloseLink(link), 0);
}

TEST_F(Broken, IsNotALinkWhoseServiceIsGoneForGoodAndItCloses)
{
    Receiver receiver;
    int link = up(receiver);
    nm.reset();
    rest();
    EXPECT_FALSE(receiver.ready());
    EXPECT_EQ(NAPI_CloseLink(link), 0);
    rest();
    EXPECT_FALSE(receiver.ready());
}

TEST_F(Broken, IsNotALinkWhoseServiceRestarts)
{
    Receiver receiver;
    int link = up(receiver);
    nm->service.leave();
    rest();
    EXPECT_FALSE(receiver.ready());
    nm->service.arrive();
    rest();
    EXPECT_FALSE(receiver.ready());
    char name[16];
    EXPECT_EQ(NAPI_GetDeviceInfo(link, NAPI_DEVICE_NAME, name, sizeof name), 0);
    EXPECT_STREQ(name, "hso0");
}

} // namespace
