// A user whom polkit does not let control the network.
#include "network/lab/lab_world.h"

using namespace linktest;
using namespace labtest;

namespace {

class Rights : public EthernetTest, public testing::WithParamInterface<const char*>
{
protected:
    void TearDown() override
    {
        writePolkit("yes");
        EthernetTest::TearDown();
    }
    static void writePolkit(const std::string& text)
    {
        run("echo '" + text + "' >/run/lab/polkit");
    }
};

TEST_P(Rights, ThatAreMissingAreToldAsTheCause)
{
    writePolkit(std::string("org.freedesktop.NetworkManager.") + GetParam());
    Receiver receiver;
    int link = NAPI_OpenLink("Home");
    Message message = receiver.next();
    EXPECT_EQ(message.type, NAPI_IND_OPEN_FAILED);
    EXPECT_EQ(message.link, link);
    EXPECT_EQ(message.cause, NAPI_CAUSE_NOT_PERMITTED);
}
INSTANTIATE_TEST_SUITE_P(All, Rights, testing::Values("network-control", "settings.modify.own"),
                         [](const auto& row) {
                             return std::string(row.param) == "network-control" ? "Control" : "Own";
                         });

// The stock rules let a user of the active session do what he needs, and not change what belongs to
// everybody.
TEST_F(Rights, OfAnOrdinaryUserSuffice)
{
    writePolkit("org.freedesktop.NetworkManager.settings.modify.system");
    Receiver receiver;
    EXPECT_EQ(up(receiver).device, "eth9");
}

} // namespace
