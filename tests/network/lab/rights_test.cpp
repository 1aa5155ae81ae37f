// A user whom polkit does not let control the network.
#include "network/lab/lab_world.h"

using namespace linktest;
using namespace labtest;

namespace {

struct RightRow
{
    const char* name;
    const char* refused; // action of polkit
    NetworkProfile (*profile)();
    const char* port;
    int cause;
};
const RightRow rightRows[] = {
    {"ControlOverEthernet", "NetworkManager.network-control", wifiProfile, "eth9",
     NAPI_CAUSE_NOT_PERMITTED},
    {"OwnOverEthernet", "NetworkManager.settings.modify.own", wifiProfile, "eth9",
     NAPI_CAUSE_NOT_PERMITTED},
    {"SystemOverEthernet", "NetworkManager.settings.modify.system", wifiProfile, "eth9",
     NAPI_CAUSE_NONE},
    {"ControlOverPacketData", "NetworkManager.network-control", fullProfile, "ttyHS0",
     NAPI_CAUSE_NOT_PERMITTED},
    {"OwnOverPacketData", "NetworkManager.settings.modify.own", fullProfile, "ttyHS0",
     NAPI_CAUSE_NOT_PERMITTED},
    {"SystemOverPacketData", "NetworkManager.settings.modify.system", fullProfile, "ttyHS0",
     NAPI_CAUSE_NONE},
    // No right of the user's: it is NetworkManager that may not, and it keeps to itself why.
    {"TheModemItself", "ModemManager1.Device.Control", fullProfile, "ttyHS0", NAPI_CAUSE_UNKNOWN},
};

// The stock rules let a user of the active session control the network and have connections of his
// own, and not change what belongs to everybody.
class Rights : public LabTest, public testing::WithParamInterface<RightRow>
{
protected:
    void SetUp() override
    {
        LabTest::SetUp();
        store("Home", GetParam().profile());
        writePolkit(std::string("org.freedesktop.") + GetParam().refused);
    }
    void TearDown() override
    {
        writePolkit("yes");
        LabTest::TearDown();
    }
    std::string device() const override { return GetParam().port; }

    static void writePolkit(const std::string& text)
    {
        run("echo '" + text + "' >/run/lab/polkit");
    }
};
TEST_P(Rights, ThatAreMissingAreTheCause)
{
    Receiver receiver;
    int link = NAPI_OpenLink("Home");
    Message message = receiver.next();
    bool allowed = GetParam().cause == NAPI_CAUSE_NONE;
    EXPECT_EQ(message.type, allowed ? NAPI_IND_CONNECTED : NAPI_IND_OPEN_FAILED);
    EXPECT_EQ(message.link, link);
    EXPECT_EQ(message.cause, GetParam().cause);
}
INSTANTIATE_TEST_SUITE_P(To, Rights, testing::ValuesIn(rightRows),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace
