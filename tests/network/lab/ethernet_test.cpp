// Links over Ethernet, with the real NetworkManager and a real far end.

#include <cerrno>

#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include "network/lab/lab_world.h"

using namespace linktest;
using namespace labtest;

namespace {

class Ethernet : public EthernetTest
{};

TEST_F(Ethernet, CarriesASocketThatIsBoundToIt)
{
    Receiver receiver;
    Message message = up(receiver);
    int socket = ::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    ASSERT_EQ(NAPI_BindSocket2Link(message.link, socket), 0);
    sockaddr_in server = {};
    server.sin_family = AF_INET;
    server.sin_addr.s_addr = htonl(0x0A4D0001);
    server.sin_port = htons(53);
    // A question for lab.example to the name server at the far end.
    const char question[] = "\0\1\1\0\0\1\0\0\0\0\0\0\3lab\7example\0\0\1\0\1";
    ASSERT_EQ(::connect(socket, reinterpret_cast<sockaddr*>(&server), sizeof server), 0);
    timeval patience = {5, 0};
    ::setsockopt(socket, SOL_SOCKET, SO_RCVTIMEO, &patience, sizeof patience);
    ASSERT_EQ(::send(socket, question, sizeof question - 1, 0), ssize_t(sizeof question - 1));
    char answer[512];
    EXPECT_GT(::recv(socket, answer, sizeof answer, 0), 0);
    ::close(socket);
}

TEST_F(Ethernet, ThatIsUpAlreadyIsSharedAndLeftUp)
{
    run("nmcli connection add type ethernet ifname eth9 con-name others autoconnect no && "
        "nmcli connection up others");
    {
        Receiver receiver;
        Message message = up(receiver);
        EXPECT_EQ(message.device, "eth9");
        EXPECT_EQ(NAPI_CloseLink(message.link), 0);
        EXPECT_FALSE(within(Milliseconds(300), receiver));
        EXPECT_EQ(stateOf("eth9"), 100);
    }
    run("nmcli connection delete others");
}

// NetworkManager binds to a program only the connections that were made for it.
TEST_F(Ethernet, ThatNetworkManagerKnowsEndsWithItsLinkAndNotWithTheProgram)
{
    run("nmcli connection add type ethernet ifname eth9 con-name known autoconnect no");
    OtherProgram closes("Home");
    ASSERT_EQ(closes.outcome(), NAPI_IND_CONNECTED);
    EXPECT_EQ(output("nmcli -g GENERAL.CONNECTION device show eth9"), "known");
    closes.end();
    EXPECT_TRUE(until([] { return stateOf("eth9") == 30; }));
    OtherProgram killed("Home");
    ASSERT_EQ(killed.outcome(), NAPI_IND_CONNECTED);
    killed.kill();
    EXPECT_FALSE(until([] { return stateOf("eth9") != 100; }, Milliseconds(300)));
    run("nmcli connection delete known");
}

TEST_F(Ethernet, BreaksWhenTheDeviceIsUnplugged)
{
    Receiver receiver;
    Message message = up(receiver);
    run("ip link del eth9");
    EXPECT_EQ(receiver.next(), broken(message.link, "eth9", message.address, NAPI_BEARER_WIFI));
    run("ip link add eth9 type veth peer name peer9 netns $PEER && nsenter -t $PEER -n sh -c "
        "'ip addr add 10.77.0.1/24 dev peer9; ip link set peer9 up'");
}

TEST_F(Ethernet, FailsWithoutACarrier)
{
    run("nsenter -t $PEER -n ip link set peer9 down");
    EXPECT_TRUE(until([] { return stateOf("eth9") == 20; }));
    {
        Receiver receiver;
        NAPI_OpenLink("Home");
        Message message = receiver.next();
        EXPECT_EQ(message.type, NAPI_IND_OPEN_FAILED);
        EXPECT_EQ(message.cause, NAPI_CAUSE_NO_CARRIER);
    }
    run("nsenter -t $PEER -n ip link set peer9 up");
}

TEST_F(Ethernet, MayBeCancelledWhileTheFarEndGivesNoAddress)
{
    run("kill -STOP $DNSMASQ");
    Receiver receiver;
    int link = NAPI_OpenLink("Home");
    EXPECT_TRUE(until([] { return stateOf("eth9") == 70; }));
    EXPECT_EQ(NAPI_CloseLink(link), 0);
    EXPECT_TRUE(until([] { return stateOf("eth9") == 30; }));
    EXPECT_FALSE(receiver.ready());
    run("kill -CONT $DNSMASQ");
}

// Not over the modem: NetworkManager 1.42 has a fault of its own there, and ends, when it is told
// to end its activations faster than the modem follows.
TEST_F(Ethernet, MayBeCancelledAtAnyMoment)
{
    Receiver receiver;
    for (int moment = 0; moment < 30; moment += 2) {
        int link = NAPI_OpenLink("Home");
        EXPECT_EQ(link, 0);
        ::usleep(useconds_t(moment) * 1000);
        EXPECT_EQ(NAPI_CloseLink(link), 0);
    }
    while (receiver.ready()) {
    }
    EXPECT_TRUE(until([] { return stateOf("eth9") == 30; }));
    EXPECT_FALSE(receiver.ready());
}

TEST_F(Ethernet, ThatIsNotThereIsADeviceThatIsGone)
{
    configure(R"({"bearer": "networkmanager", "interfaces": {"wifi": "eth7"}})");
    Receiver receiver;
    NAPI_OpenLink("Home");
    EXPECT_EQ(receiver.next(), failed(0, NAPI_CAUSE_DEVICE_GONE, 0x300 + ENODEV));
}

TEST_F(Ethernet, FailsOnceWhenNetworkManagerIsKilledMeanwhile)
{
    run("kill -STOP $DNSMASQ");
    {
        Receiver receiver;
        NAPI_OpenLink("Home");
        EXPECT_TRUE(until([] { return stateOf("eth9") == 70; }));
        run("kill -KILL $(cat /run/lab/nm.pid)");
        Message message = receiver.next();
        EXPECT_EQ(message.type, NAPI_IND_OPEN_FAILED);
        EXPECT_EQ(message.cause, NAPI_CAUSE_NO_SERVICE_DAEMON);
        EXPECT_FALSE(within(Milliseconds(200), receiver));
    }
    run("kill -CONT $DNSMASQ; " LAB_FOLDER "/daemon nm");
    EXPECT_TRUE(until([] { return stateOf("eth9") == 30; }));
}

TEST_F(Ethernet, PutsItsNameServersFirst)
{
    Receiver receiver;
    Message message = up(receiver);
    EXPECT_EQ(NAPI_DnsResolverConfig(message.link), 0);
    EXPECT_NE(readFile(root() + "/etc/resolv.conf").find("nameserver 10.77.0.1\n"),
              std::string::npos);
    EXPECT_TRUE(until([] {
        return readFile("/etc/resolv.conf").find("nameserver 10.77.0.1\n") != std::string::npos;
    }));
}

} // namespace
