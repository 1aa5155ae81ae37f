// Replies that never come: each opening ends when its time is over, and what comes late is taken
// down.
#include "network/fake/fake_test.h"

using namespace linktest;
using namespace fakebus;

namespace {

// So long that the test's own thread is not late for an answer, on whatever machine.
const char* const shortGuards = R"({"bearer": "networkmanager", "guards": {
    "replyMs": 400, "cellularMs": 600, "secretMs": 200}})";

struct SilenceRow
{
    const char* name;
    std::function<void(NetworkManager&, ModemManager&)> fall;
    int cause;
    int detail;
};
const SilenceRow silenceRows[] = {
    {"TheDevices",
     [](NetworkManager& nm, ModemManager&) { nm.service.silence("GetManagedObjects"); },
     NAPI_CAUSE_TIMEOUT, 0},
    {"TheModems",
     [](NetworkManager&, ModemManager& mm) { mm.service.silence("GetManagedObjects"); },
     NAPI_CAUSE_TIMEOUT, 0},
    {"TheActivation",
     [](NetworkManager& nm, ModemManager&) { nm.service.silence("AddAndActivateConnection2"); },
     NAPI_CAUSE_TIMEOUT, 0},
    {"TheDialling", [](NetworkManager& nm, ModemManager&) { nm.onActivate = [] {}; },
     NAPI_CAUSE_TIMEOUT, 0},
    {"TheRegistration",
     [](NetworkManager& nm, ModemManager&) { nm.onActivate = [&nm] { nm.deviceState(Prepare); }; },
     NAPI_CAUSE_TIMEOUT, 0},
    {"TheOwnerOfThePin",
     [](NetworkManager& nm, ModemManager&) {
         nm.onActivate = [&nm] {
             nm.deviceState(Prepare);
             nm.deviceState(NeedAuth);
         };
     },
     NAPI_CAUSE_SIM, 0x100 + 46},
};
class Silence : public FakeTest, public testing::WithParamInterface<SilenceRow>
{
protected:
    void SetUp() override
    {
        FakeTest::SetUp();
        configure(shortGuards);
    }
};
TEST_P(Silence, EndsTheOpeningOnce)
{
    GetParam().fall(*nm, *mm);
    Receiver receiver;
    int link = NAPI_OpenLink("Home");
    EXPECT_EQ(next(receiver), failed(link, GetParam().cause, GetParam().detail));
    EXPECT_TRUE(until([this] { return nm->living() == 0; }));
    EXPECT_FALSE(receiver.ready());
}
INSTANTIATE_TEST_SUITE_P(Of, Silence, testing::ValuesIn(silenceRows),
                         [](const auto& row) { return row.param.name; });

class Guard : public Silence
{};

TEST_F(Guard, OfAnOpeningTakesDownWhatIsAnsweredLate)
{
    sd_bus_message* late = nullptr;
    nm->service.on("AddAndActivateConnection2", [&late](sd_bus_message* call) {
        late = sd_bus_message_ref(call);
        return 0;
    });
    Receiver receiver;
    NAPI_OpenLink("Home");
    EXPECT_EQ(next(receiver).cause, NAPI_CAUSE_TIMEOUT);
    ASSERT_TRUE(late);
    sd_bus_reply_method_return(late, "ooa{sv}", "/org/freedesktop/NetworkManager/Settings/7",
                               "/org/freedesktop/NetworkManager/ActiveConnection/7", 0);
    sd_bus_message_unref(late);
    EXPECT_TRUE(until([this] { return nm->service.countOf("DeactivateConnection") == 1; }));
    EXPECT_FALSE(receiver.ready());
}

// A modem that somebody else has up: only the service can tell with which access point.
TEST_F(Guard, OfAComparisonFailsTheOpening)
{
    const char* const active = "/org/freedesktop/NetworkManager/ActiveConnection/9";
    Dictionary& device = nm->service.objects[modemDevice]["org.freedesktop.NetworkManager.Device"];
    device["State"] = number(Activated);
    device["ActiveConnection"] = path(active);
    nm->service.objects[active]["org.freedesktop.NetworkManager.Connection.Active"] = {
        {"State", number(ActiveUp)},
        {"Connection", path("/org/freedesktop/NetworkManager/Settings/9")}};
    nm->service.silence("GetSettings");
    Receiver receiver;
    NAPI_OpenLink("Home");
    EXPECT_EQ(next(receiver), failed(0, NAPI_CAUSE_TIMEOUT, 0));
    EXPECT_EQ(nm->service.countOf("DeactivateConnection"), 0u);
    nm->service.objects.erase(active);
}

TEST_F(Guard, OfASecretEndsWhenSomebodyGivesIt)
{
    nm->onActivate = [this] {
        nm->deviceState(Prepare);
        nm->deviceState(NeedAuth);
        nm->connect();
    };
    Receiver receiver;
    up(receiver);
    rest(Milliseconds(500));
    EXPECT_FALSE(receiver.ready());
}

} // namespace
