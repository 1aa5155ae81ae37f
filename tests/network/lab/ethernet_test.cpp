// Links over Ethernet, with the real NetworkManager and a real far end.
#include <csignal>

#include <netinet/in.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include "network/lab/lab_world.h"

using namespace linktest;
using namespace labtest;

namespace {

class Ethernet : public EthernetTest
{};

bool isLeased(uint32_t address)
{
    return address >= 0x0A4D0032 && address <= 0x0A4D0063; // 10.77.0.50 to 10.77.0.99
}

TEST_F(Ethernet, ConnectsWithTheInterfaceAndItsAddress)
{
    Receiver receiver;
    Message message = up(receiver);
    EXPECT_EQ(message.device, "eth9");
    EXPECT_EQ(message.kind, NAPI_BEARER_WIFI);
    EXPECT_TRUE(isLeased(message.address)) << message;
    EXPECT_EQ(stateOf("eth9"), 100);
}

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

TEST_F(Ethernet, IsTakenDownByClose)
{
    Receiver receiver;
    NAPI_CloseLink(up(receiver).link);
    EXPECT_TRUE(until([] { return stateOf("eth9") == 30; }));
    EXPECT_EQ(output("ip -4 -o address show eth9"), "");
    EXPECT_FALSE(receiver.ready());
}

TEST_F(Ethernet, IsTakenDownWhenTheProgramIsKilled)
{
    OtherProgram program("Home");
    EXPECT_EQ(program.outcome(), NAPI_IND_CONNECTED);
    EXPECT_EQ(stateOf("eth9"), 100);
    program.kill();
    EXPECT_TRUE(until([] { return stateOf("eth9") == 30; }));
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

TEST_F(Ethernet, OfAnotherProgramIsSharedAndBreaksWithIt)
{
    OtherProgram program("Home");
    ASSERT_EQ(program.outcome(), NAPI_IND_CONNECTED);
    Receiver receiver;
    Message message = up(receiver);
    program.kill();
    EXPECT_EQ(receiver.next(), broken(message.link, "eth9", message.address, NAPI_BEARER_WIFI));
}

TEST_F(Ethernet, BreaksWhenSomebodyDisconnectsIt)
{
    Receiver receiver;
    Message message = up(receiver);
    run("nmcli device disconnect eth9");
    EXPECT_EQ(receiver.next(), broken(message.link, "eth9", message.address, NAPI_BEARER_WIFI));
    EXPECT_FALSE(within(Milliseconds(200), receiver));
}

TEST_F(Ethernet, BreaksWhenItsAddressIsTakenAway)
{
    Receiver receiver;
    Message message = up(receiver);
    run("ip address flush dev eth9");
    EXPECT_EQ(receiver.next(), broken(message.link, "eth9", message.address, NAPI_BEARER_WIFI));
}

TEST_F(Ethernet, BreaksWhenTheCarrierIsLost)
{
    Receiver receiver;
    Message message = up(receiver);
    run("nsenter -t $PEER -n ip link set peer9 down");
    auto said = within(Milliseconds(5000), receiver);
    ASSERT_TRUE(said) << "NetworkManager's own grace is six seconds";
    EXPECT_EQ(*said, broken(message.link, "eth9", message.address, NAPI_BEARER_WIFI));
    run("nsenter -t $PEER -n ip link set peer9 up");
    NAPI_CloseLink(message.link);
}

TEST_F(Ethernet, StaysUpWhileTheCarrierFlickers)
{
    Receiver receiver;
    up(receiver);
    run("nsenter -t $PEER -n sh -c 'ip link set peer9 down; sleep 0.2; ip link set peer9 up'");
    EXPECT_FALSE(within(Milliseconds(1500), receiver));
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

TEST_F(Ethernet, OpensAndClosesTwentyTimes)
{
    Receiver receiver;
    for (int round = 0; round < 20; ++round) {
        EXPECT_EQ(up(receiver).link, 0);
        EXPECT_EQ(NAPI_CloseLink(0), 0);
    }
}

TEST_F(Ethernet, Carries256LinksOfOneProfile)
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
    EXPECT_EQ(stateOf("eth9"), 100);
    EXPECT_FALSE(receiver.ready());
}

TEST_F(Ethernet, OutlivesAForkedChild)
{
    Receiver receiver;
    Message message = up(receiver);
    pid_t child = ::fork();
    if (child == 0)
        ::_exit(NAPI_CloseLink(message.link) == NAPI_ERR_NOT_INITIALISED ? 0 : 1);
    int status = 0;
    ::waitpid(child, &status, 0);
    EXPECT_EQ(status, 0) << "a child has no network API of its own yet";
    EXPECT_FALSE(within(Milliseconds(300), receiver));
    EXPECT_EQ(stateOf("eth9"), 100);
}

TEST_F(Ethernet, SurvivesARestartOfNetworkManager)
{
    Receiver receiver;
    Message message = up(receiver);
    run("kill -KILL $(cat /run/lab/nm.pid)");
    EXPECT_FALSE(within(Milliseconds(200), receiver));
    EXPECT_NE(output("ip -4 -o address show eth9"), "");
    run(LAB_FOLDER "/daemon nm");
    EXPECT_TRUE(until([] { return stateOf("eth9") == 100; }));
    EXPECT_FALSE(within(Milliseconds(1500), receiver));
    // It is found again: what happens to it now is heard, and closing takes it down.
    EXPECT_EQ(NAPI_CloseLink(message.link), 0);
    EXPECT_TRUE(until([] { return stateOf("eth9") == 30; }));
}

TEST_F(Ethernet, FailsWhileNetworkManagerDoesNotRun)
{
    run("kill -KILL $(cat /run/lab/nm.pid)");
    {
        Receiver receiver;
        NAPI_OpenLink("Home");
        Message message = receiver.next();
        EXPECT_EQ(message.type, NAPI_IND_OPEN_FAILED);
        EXPECT_EQ(message.cause, NAPI_CAUSE_NO_SERVICE_DAEMON);
    }
    run(LAB_FOLDER "/daemon nm");
    EXPECT_TRUE(until([] { return stateOf("eth9") == 30; }));
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
