// Packet data: the real ModemManager dials a scripted modem.
#include <csignal>

#include <unistd.h>

#include "network/lab/lab_world.h"

using namespace linktest;
using namespace labtest;

namespace {

constexpr uint32_t address = 0x0A630002; // 10.99.0.2

Message connectedByModem(int link)
{
    return connected(link, "hso0", address, NAPI_BEARER_GPRS);
}

Message brokenModemLink(int link)
{
    return broken(link, "hso0", address, NAPI_BEARER_GPRS);
}

class PacketData : public ModemTest
{
protected:
    // The modem's context of the access point, as the dialling has written it: "1".
    std::string context(const std::string& accessPoint) const
    {
        for (const std::string& command : commands()) {
            if (command.find("\"IP\",\"" + accessPoint + "\"") != std::string::npos)
                return command.substr(std::string("AT+CGDCONT=").size(), 1);
        }
        return "none";
    }
};

TEST_F(PacketData, IsDialledWithWhatTheProfileSays)
{
    Receiver receiver;
    NAPI_OpenLink("Home");
    EXPECT_EQ(receiver.next(), connectedByModem(0));
    std::string id = context("internet.example");
    EXPECT_TRUE(got("AT$QCPDPP=" + id + ",2,\"correct horse 4711\",\"ursula\""));
    EXPECT_TRUE(got("AT_OWANCALL=" + id + ",1,1"));
}

TEST_F(PacketData, WithoutAUserNameIsDialledWithoutOne)
{
    store("Bare");
    Receiver receiver;
    EXPECT_EQ(up(receiver, "Bare").device, "hso0");
    EXPECT_NE(context("internet"), "none");
    EXPECT_FALSE(got("AT$QCPDPP=1,2"));
}

TEST_F(PacketData, IsHungUpByClose)
{
    Receiver receiver;
    NAPI_CloseLink(up(receiver).link);
    EXPECT_TRUE(until([this] { return got("AT_OWANCALL=1,0,"); }));
    EXPECT_TRUE(until([] { return stateOf("ttyHS0") == 30; }));
    EXPECT_FALSE(receiver.ready());
}

TEST_F(PacketData, IsHungUpWhenTheProgramIsKilled)
{
    OtherProgram program("Home");
    ASSERT_EQ(program.outcome(), NAPI_IND_CONNECTED);
    program.kill();
    EXPECT_TRUE(until([this] { return got("AT_OWANCALL=1,0,"); }));
    EXPECT_TRUE(until([] { return stateOf("ttyHS0") == 30; }));
}

TEST_F(PacketData, GivesTheNameServersOfTheNetwork)
{
    Receiver receiver;
    EXPECT_EQ(NAPI_DnsResolverConfig(up(receiver).link), 0);
    std::string written = readFile(root() + "/etc/resolv.conf");
    EXPECT_NE(written.find("nameserver 10.99.0.1\nnameserver 10.99.0.3\n"), std::string::npos)
        << written;
}

TEST_F(PacketData, PutsTheProfilesNameServersInPlaceOfTheNetworks)
{
    NetworkProfile record = fullProfile();
    record.gprsDns1 = 0x0A4D0001;
    store("Own", record);
    Receiver receiver;
    EXPECT_EQ(NAPI_DnsResolverConfig(up(receiver, "Own").link), 0);
    EXPECT_EQ(output("nmcli -g IP4.DNS device show ttyHS0"), "10.77.0.1");
    EXPECT_TRUE(until([] {
        return readFile("/etc/resolv.conf").find("nameserver 10.77.0.1\n") != std::string::npos;
    }));
}

TEST_F(PacketData, BreaksWhenTheNetworkDropsTheCall)
{
    Receiver receiver;
    Message message = up(receiver);
    modem("send _OWANCALL: 1, 0");
    EXPECT_EQ(receiver.next(), brokenModemLink(message.link));
    EXPECT_FALSE(within(Milliseconds(200), receiver));
}

TEST_F(PacketData, ThatIsUpWithTheSameAccessPointIsShared)
{
    OtherProgram program("Home");
    ASSERT_EQ(program.outcome(), NAPI_IND_CONNECTED);
    Receiver receiver;
    Message message = up(receiver);
    EXPECT_EQ(message, connectedByModem(message.link));
    EXPECT_EQ(NAPI_CloseLink(message.link), 0);
    EXPECT_FALSE(within(Milliseconds(200), receiver));
    EXPECT_EQ(stateOf("ttyHS0"), 100);
    message = up(receiver);
    program.end();
    EXPECT_EQ(receiver.next(), brokenModemLink(message.link));
}

TEST_F(PacketData, ThatIsUpWithAnotherAccessPointIsBusy)
{
    store("Other");
    OtherProgram program("Home");
    ASSERT_EQ(program.outcome(), NAPI_IND_CONNECTED);
    Receiver receiver;
    int link = NAPI_OpenLink("Other");
    Message message = receiver.next();
    EXPECT_EQ(message.type, NAPI_IND_OPEN_FAILED);
    EXPECT_EQ(message.link, link);
    EXPECT_EQ(message.cause, NAPI_CAUSE_BUSY);
    EXPECT_EQ(stateOf("ttyHS0"), 100);
}

TEST_F(PacketData, IsTakenOverWhereTheConfigurationSaysSo)
{
    configure(R"({"bearer": "networkmanager", "takeOver": true})");
    store("Other");
    OtherProgram program("Home");
    ASSERT_EQ(program.outcome(), NAPI_IND_CONNECTED);
    Receiver receiver;
    EXPECT_EQ(up(receiver, "Other"), connectedByModem(0));
    EXPECT_NE(context("internet"), "none");
}

TEST_F(PacketData, OfTwoAccessPointsAtOnceGoesToTheFirst)
{
    store("Other");
    Receiver receiver;
    EXPECT_EQ(NAPI_OpenLink("Home"), 0);
    EXPECT_EQ(NAPI_OpenLink("Other"), 1);
    int types[2] = {0, 0};
    for (int message = 0; message < 2; ++message) {
        Message told = receiver.next();
        types[told.link] = told.type;
        EXPECT_EQ(told.cause, told.link == 1 ? NAPI_CAUSE_BUSY : NAPI_CAUSE_NONE);
    }
    EXPECT_EQ(types[0], NAPI_IND_CONNECTED);
    EXPECT_EQ(types[1], NAPI_IND_OPEN_FAILED);
}

const char* const dialling[] = {"AT+CGDCONT=", "AT$QCPDPP=", "AT_OWANCALL=1,1", "AT_OWANDATA="};

TEST_F(PacketData, MayBeCancelledAtEachCommandOfTheDialling)
{
    Receiver receiver;
    for (const char* command : dialling) {
        SCOPED_TRACE(command);
        modem(std::string(command) + " => silence");
        int link = NAPI_OpenLink("Home");
        EXPECT_EQ(link, 0);
        ASSERT_TRUE(until([&] { return got(command); }));
        auto before = std::chrono::steady_clock::now();
        EXPECT_EQ(NAPI_CloseLink(link), 0);
        EXPECT_LT(std::chrono::steady_clock::now() - before, Milliseconds(500));
        modem("forget");
        // The late answer; without it ModemManager would wait for three seconds.
        modem("send OK");
        EXPECT_TRUE(until([] { return stateOf("ttyHS0") == 30; }, Milliseconds(15000)));
        EXPECT_FALSE(receiver.ready());
    }
    // Whatever was under way is over: the next dialling is as good as ever.
    EXPECT_EQ(up(receiver).device, "hso0");
}

TEST_F(PacketData, FailsWhenTheModemDoesNotAnswer)
{
    modem("AT_OWANCALL=1,1 => silence");
    Receiver receiver;
    NAPI_OpenLink("Home");
    Message message = receiver.next();
    EXPECT_EQ(message.type, NAPI_IND_OPEN_FAILED);
    EXPECT_EQ(message.cause, NAPI_CAUSE_MODEM);
}

TEST_F(PacketData, FailsWithoutARegistration)
{
    modem("AT+CREG? => +CREG: 2,3|OK");
    modem("AT+CGREG? => +CGREG: 2,3|OK");
    modem("send +CREG: 3|+CGREG: 3");
    EXPECT_TRUE(until([] {
        return output("mmcli --modem any --output-keyvalue | grep registration-state")
                   .find("denied") != std::string::npos;
    }));
    Receiver receiver;
    NAPI_OpenLink("Home");
    Message message = receiver.next();
    EXPECT_EQ(message.type, NAPI_IND_OPEN_FAILED);
    EXPECT_EQ(message.cause, NAPI_CAUSE_NO_SERVICE);
    modem("forget");
    modem("send +CREG: 1,\"00C3\",\"00001234\"|+CGREG: 1,\"00C3\",\"00001234\"");
    EXPECT_TRUE(until([] {
        return output("mmcli --modem any --output-keyvalue | grep generic.state ")
                   .find("registered") != std::string::npos;
    }));
}

TEST_F(PacketData, IsNeverSwitchedOnByUs)
{
    run("nmcli radio wwan off");
    EXPECT_TRUE(until([] { return stateOf("ttyHS0") == 20; }));
    {
        Receiver receiver;
        NAPI_OpenLink("Home");
        Message message = receiver.next();
        EXPECT_EQ(message.type, NAPI_IND_OPEN_FAILED);
        EXPECT_EQ(message.cause, NAPI_CAUSE_NO_SERVICE);
        EXPECT_EQ(message.detail, 0x300 + ERFKILL);
        EXPECT_EQ(output("nmcli radio wwan"), "disabled");
    }
    run("nmcli radio wwan on");
    EXPECT_TRUE(until([] { return stateOf("ttyHS0") == 30; }));
}

TEST_F(PacketData, IsNeverSwitchedOnWithTheWholeNetworking)
{
    run("nmcli networking off");
    {
        Receiver receiver;
        NAPI_OpenLink("Home");
        Message message = receiver.next();
        EXPECT_EQ(message.type, NAPI_IND_OPEN_FAILED);
        EXPECT_EQ(message.cause, NAPI_CAUSE_NO_SERVICE);
        EXPECT_EQ(output("nmcli networking"), "disabled");
    }
    run("nmcli networking on");
    EXPECT_TRUE(until([] { return stateOf("ttyHS0") == 30; }));
}

struct RefusalRow
{
    int code; // of +CME ERROR
    NapiCause cause;
    int detail; // where NetworkManager itself knows the reason, its number; else the code
};
const RefusalRow refusalRows[] = {
    {10, NAPI_CAUSE_SIM, 0x100 + 45},
    {12, NAPI_CAUSE_SIM, 0x100 + 47},
    {15, NAPI_CAUSE_SIM, 0x100 + 48},
    {16, NAPI_CAUSE_SIM, 0x100 + 59},
    {30, NAPI_CAUSE_NO_SERVICE, 0x100 + 30},
    {31, NAPI_CAUSE_NO_SERVICE, 0x100 + 32},
    {32, NAPI_CAUSE_NO_SERVICE, 0x100 + 31},
    {100, NAPI_CAUSE_UNKNOWN, 0x100 + 1},
    {107, NAPI_CAUSE_SUBSCRIPTION, 107},
    {111, NAPI_CAUSE_NO_SERVICE, 111},
    {112, NAPI_CAUSE_NO_SERVICE, 112},
    {113, NAPI_CAUSE_NO_SERVICE, 113},
    {114, NAPI_CAUSE_NO_SERVICE, 114},
    {126, NAPI_CAUSE_MODEM, 126},
    {127, NAPI_CAUSE_SUBSCRIPTION, 127},
    {129, NAPI_CAUSE_AUTHENTICATION, 129},
    {132, NAPI_CAUSE_SUBSCRIPTION, 132},
    {133, NAPI_CAUSE_SUBSCRIPTION, 133},
    {134, NAPI_CAUSE_MODEM, 134},
    {149, NAPI_CAUSE_AUTHENTICATION, 149},
    {177, NAPI_CAUSE_SUBSCRIPTION, 177},
    {179, NAPI_CAUSE_SUBSCRIPTION, 179},
};
class PacketDataRefused : public ModemTest, public testing::WithParamInterface<RefusalRow>
{};
TEST_P(PacketDataRefused, ByTheModemTellsItsCode)
{
    modem("AT_OWANCALL=1,1 => +CME ERROR: " + std::to_string(GetParam().code));
    Receiver receiver;
    NAPI_OpenLink("Home");
    EXPECT_EQ(receiver.next(), failed(0, GetParam().cause, GetParam().detail));
}
INSTANTIATE_TEST_SUITE_P(All, PacketDataRefused, testing::ValuesIn(refusalRows),
                         [](const auto& row) { return "Code" + std::to_string(row.param.code); });

TEST_F(PacketData, BreaksWhenModemManagerIsKilled)
{
    Receiver receiver;
    Message message = up(receiver);
    run("kill -KILL $(cat /run/lab/mm.pid)");
    EXPECT_EQ(receiver.next(), brokenModemLink(message.link));
    NAPI_CloseLink(message.link);
    modem("forget");
    run(LAB_FOLDER "/daemon mm");
    EXPECT_TRUE(until([] { return stateOf("ttyHS0") == 30; }, Milliseconds(30000)));
    EXPECT_FALSE(receiver.ready());
}

} // namespace
