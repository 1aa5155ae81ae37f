// What holds for every link over NetworkManager, over Ethernet and over the modem.
#include <csignal>

#include <sys/wait.h>
#include <unistd.h>

#include "network/lab/lab_world.h"

using namespace linktest;
using namespace labtest;

namespace {

struct Medium
{
    const char* name;
    NapiBearerKind kind;
    const char* port; // NetworkManager's name of the device
    const char* interface;
    const char* peer; // its far end
    NetworkProfile (*profile)();
    uint32_t firstAddress;
    uint32_t lastAddress;
};
const Medium media[] = {
    {"Ethernet", NAPI_BEARER_WIFI, "eth9", "eth9", "peer9", wifiProfile, 0x0A4D0032, 0x0A4D0063},
    {"PacketData", NAPI_BEARER_GPRS, "ttyHS0", "hso0", "peerhso", fullProfile, 0x0A630002,
     0x0A630002},
};

class Link : public LabTest, public testing::WithParamInterface<Medium>
{
protected:
    void SetUp() override
    {
        LabTest::SetUp();
        store("Home", GetParam().profile());
    }

    std::string device() const override { return GetParam().port; }

    bool isDown() const
    {
        return until([this] { return stateOf(device()) == 30; }, Milliseconds(30000));
    }

    static std::string interface() { return GetParam().interface; }

    static void farEnd(const std::string& command) { run("nsenter -t $PEER -n " + command); }

    static Message brokenAfter(const Message& connection)
    {
        return broken(connection.link, interface(), connection.address, GetParam().kind);
    }

    static void endNetworkManager() { run("kill -KILL $(cat /run/lab/nm.pid)"); }
    static void startNetworkManager() { run(LAB_FOLDER "/daemon nm"); }
};

TEST_P(Link, IsTheInterfaceWithItsAddress)
{
    Receiver receiver;
    Message message = up(receiver);
    EXPECT_EQ(message.device, interface());
    EXPECT_EQ(message.kind, GetParam().kind);
    EXPECT_GE(message.address, GetParam().firstAddress);
    EXPECT_LE(message.address, GetParam().lastAddress);
    EXPECT_EQ(stateOf(device()), 100);
}

TEST_P(Link, IsTakenDownByClose)
{
    Receiver receiver;
    NAPI_CloseLink(up(receiver).link);
    EXPECT_TRUE(isDown());
    EXPECT_EQ(output("ip -4 -o address show " + interface()), "");
    EXPECT_FALSE(receiver.ready());
}

TEST_P(Link, IsTakenDownWhenItsProgramIsKilled)
{
    OtherProgram program("Home");
    EXPECT_EQ(program.outcome(), NAPI_IND_CONNECTED);
    EXPECT_EQ(stateOf(device()), 100);
    program.kill();
    EXPECT_TRUE(isDown());
}

TEST_P(Link, OfAnotherProgramIsSharedAndBreaksWithIt)
{
    OtherProgram program("Home");
    ASSERT_EQ(program.outcome(), NAPI_IND_CONNECTED);
    Receiver receiver;
    Message message = up(receiver);
    EXPECT_EQ(NAPI_CloseLink(message.link), 0);
    EXPECT_FALSE(within(Milliseconds(200), receiver));
    EXPECT_EQ(stateOf(device()), 100);
    message = up(receiver);
    program.kill();
    EXPECT_EQ(receiver.next(), brokenAfter(message));
}

TEST_P(Link, BreaksOnceWhenSomebodyDisconnectsIt)
{
    Receiver receiver;
    Message message = up(receiver);
    run("nmcli device disconnect " + device());
    EXPECT_EQ(receiver.next(), brokenAfter(message));
    EXPECT_FALSE(within(Milliseconds(200), receiver));
}

TEST_P(Link, BreaksWhenItsAddressIsTakenAway)
{
    Receiver receiver;
    Message message = up(receiver);
    run("ip address flush dev " + interface());
    EXPECT_EQ(receiver.next(), brokenAfter(message));
}

TEST_P(Link, BreaksWhenTheCarrierIsLost)
{
    Receiver receiver;
    Message message = up(receiver);
    farEnd(std::string("ip link set ") + GetParam().peer + " down");
    auto said = within(Milliseconds(5000), receiver);
    farEnd(std::string("ip link set ") + GetParam().peer + " up");
    ASSERT_TRUE(said) << "NetworkManager's own grace is six seconds";
    EXPECT_EQ(*said, brokenAfter(message));
    NAPI_CloseLink(message.link);
}

TEST_P(Link, StaysUpWhileTheCarrierFlickers)
{
    Receiver receiver;
    up(receiver);
    std::string peer = GetParam().peer;
    farEnd("sh -c 'ip link set " + peer + " down; sleep 0.2; ip link set " + peer + " up'");
    EXPECT_FALSE(within(Milliseconds(1200), receiver));
}

TEST_P(Link, OpensAndClosesAgainAndAgain)
{
    Receiver receiver;
    for (int round = 0; round < 10; ++round) {
        EXPECT_EQ(up(receiver).link, 0);
        EXPECT_EQ(NAPI_CloseLink(0), 0);
    }
}

TEST_P(Link, IsOneConnectionFor256Openings)
{
    Receiver receiver;
    for (int link = 0; link < 256; ++link)
        ASSERT_EQ(NAPI_OpenLink("Home"), link);
    for (int link = 0; link < 256; ++link) {
        Message message = receiver.next();
        ASSERT_EQ(message.type, NAPI_IND_CONNECTED) << message;
    }
    EXPECT_EQ(output("nmcli -g NAME connection show --active | grep -vcx lo"), "1");
    for (int link = 0; link < 255; ++link)
        EXPECT_EQ(NAPI_CloseLink(link), 0);
    EXPECT_EQ(stateOf(device()), 100);
    EXPECT_FALSE(receiver.ready());
}

TEST_P(Link, OutlivesAForkedChildWithLinksOfItsOwn)
{
    Receiver receiver;
    Message message = up(receiver);
    pid_t child = ::fork();
    if (child == 0) {
        bool forgotten = NAPI_CloseLink(message.link) == NAPI_ERR_NOT_INITIALISED;
        bool connected = false;
        {
            Receiver own;
            int link = NAPI_OpenLink("Home");
            connected = own.next().type == NAPI_IND_CONNECTED && NAPI_CloseLink(link) == 0;
        }
        ::_exit(forgotten && connected ? 0 : 1);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
    EXPECT_FALSE(within(Milliseconds(200), receiver));
    EXPECT_EQ(stateOf(device()), 100);
}

TEST_P(Link, ComesUpThoughItsProgramForksMeanwhile)
{
    Receiver receiver;
    int link = NAPI_OpenLink("Home");
    pid_t child = ::fork();
    if (child == 0)
        ::_exit(NAPI_CloseLink(link) == NAPI_ERR_NOT_INITIALISED ? 0 : 1);
    EXPECT_EQ(receiver.next().type, NAPI_IND_CONNECTED);
    int status = 0;
    ::waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
    EXPECT_FALSE(within(Milliseconds(100), receiver));
}

TEST_P(Link, SurvivesARestartOfNetworkManager)
{
    Receiver receiver;
    Message message = up(receiver);
    endNetworkManager();
    EXPECT_FALSE(within(Milliseconds(200), receiver));
    EXPECT_NE(output("ip -4 -o address show " + interface()), "");
    startNetworkManager();
    EXPECT_TRUE(until([this] { return stateOf(device()) >= 30; }));
    EXPECT_FALSE(within(Milliseconds(1000), receiver));
    // It is found again: closing takes it down.
    EXPECT_EQ(NAPI_CloseLink(message.link), 0);
    EXPECT_TRUE(isDown());
}

TEST_P(Link, FailsWhileNetworkManagerDoesNotRun)
{
    endNetworkManager();
    {
        Receiver receiver;
        NAPI_OpenLink("Home");
        EXPECT_EQ(receiver.next(), failed(0, NAPI_CAUSE_NO_SERVICE_DAEMON, 0));
    }
    startNetworkManager();
    EXPECT_TRUE(isDown());
}

TEST_P(Link, FailsInTimeWhileNetworkManagerDoesNotAnswer)
{
    configure(R"({"bearer": "networkmanager", "interfaces": {"wifi": "eth9"},
                  "guards": {"replyMs": 300}})");
    run("kill -STOP $(cat /run/lab/nm.pid)");
    {
        Receiver receiver;
        NAPI_OpenLink("Home");
        EXPECT_EQ(receiver.next(), failed(0, NAPI_CAUSE_TIMEOUT, 0));
        run("kill -CONT $(cat /run/lab/nm.pid)");
        EXPECT_TRUE(isDown());
        EXPECT_FALSE(receiver.ready());
    }
}

INSTANTIATE_TEST_SUITE_P(Over, Link, testing::ValuesIn(media),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace
