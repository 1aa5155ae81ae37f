// Packet data: the real ModemManager dials a scripted modem.
#include <algorithm>
#include <cerrno>

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

    int count(const std::string& command) const
    {
        std::vector<std::string> all = commands();
        return int(std::count_if(all.begin(), all.end(), [&](const std::string& one) {
            return one.compare(0, command.size(), command) == 0;
        }));
    }

    // The network that the modem is registered in becomes a foreign one, or is home again.
    static void roam(bool abroad)
    {
        std::string state = abroad ? "5" : "1";
        modem("AT+CREG? => +CREG: 2," + state + ",\"00C3\",\"00001234\"|OK");
        modem("AT+CGREG? => +CGREG: 2," + state + ",\"00C3\",\"00001234\"|OK");
        modem("send +CREG: " + state + ",\"00C3\",\"00001234\"|+CGREG: " + state +
              ",\"00C3\",\"00001234\"");
        std::string name = abroad ? "roaming" : "home";
        EXPECT_TRUE(until([&name] {
            return output("mmcli --modem any --output-keyvalue | grep registration-state")
                       .find(name) != std::string::npos;
        }));
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
}

TEST_F(PacketData, IsHungUpWhenItsProgramIsKilled)
{
    OtherProgram program("Home");
    ASSERT_EQ(program.outcome(), NAPI_IND_CONNECTED);
    program.kill();
    EXPECT_TRUE(until([this] { return got("AT_OWANCALL=1,0,"); }));
}

TEST_F(PacketData, OfTwoOpeningsAtOnceIsDialledOnce)
{
    Receiver receiver;
    EXPECT_EQ(NAPI_OpenLink("Home"), 0);
    EXPECT_EQ(NAPI_OpenLink("Home"), 1);
    EXPECT_EQ(receiver.next().type, NAPI_IND_CONNECTED);
    EXPECT_EQ(receiver.next().type, NAPI_IND_CONNECTED);
    EXPECT_EQ(count("AT_OWANCALL=1,1"), 1);
}

// NetworkManager takes 64 bytes, which is as much as a network does.
TEST_F(PacketData, TakesTheLongestAccessPointThatThereIs)
{
    NetworkProfile record = {};
    std::string longest = std::string(63, 'a') + "z";
    longest.copy(record.gprsApn, sizeof record.gprsApn);
    store("Longest", record);
    Receiver receiver;
    up(receiver, "Longest");
    EXPECT_NE(context(longest), "none");
}

TEST_F(PacketData, RefusesAnAccessPointThatFillsItsField)
{
    NetworkProfile record = {};
    memset(record.gprsApn, 'a', sizeof record.gprsApn);
    store("Full", record);
    Receiver receiver;
    NAPI_OpenLink("Full");
    EXPECT_EQ(receiver.next(), failed(0, NAPI_CAUSE_SUBSCRIPTION, 0x300 + EINVAL));
}

TEST_F(PacketData, SaysNothingToTheModemThatBreaksOutOfItsQuotes)
{
    const char* const texts[] = {"internet\",\"evil", "internet\r\nATD112;", "internet\nAT+CFUN=0"};
    Receiver receiver;
    std::string name = "Evil";
    for (const char* text : texts) {
        NetworkProfile records[3] = {fullProfile(), fullProfile(), fullProfile()};
        strcpy(records[0].gprsApn, text);
        strcpy(records[1].gprsUserName, text);
        strcpy(records[2].gprsPassword, text);
        for (const NetworkProfile& record : records) {
            store(name += '.', record);
            NAPI_OpenLink(name.c_str());
            EXPECT_EQ(receiver.next().detail, 0x300 + EINVAL) << text;
        }
    }
    EXPECT_EQ(count("AT+CGDCONT="), 0);
}

TEST_F(PacketData, AbroadIsDialledUnlessTheConfigurationSaysOtherwise)
{
    roam(true);
    {
        Receiver receiver;
        EXPECT_EQ(NAPI_CloseLink(up(receiver).link), 0);
        EXPECT_TRUE(until([] { return stateOf("ttyHS0") == 30; }));
        configure(R"({"bearer": "networkmanager", "roaming": false})");
        int dialled = count("AT_OWANCALL=1,1");
        NAPI_OpenLink("Home");
        EXPECT_EQ(receiver.next(), failed(0, NAPI_CAUSE_NO_SERVICE, 0x300 + ERFKILL));
        EXPECT_EQ(count("AT_OWANCALL=1,1"), dialled);
    }
    roam(false);
    Receiver receiver;
    up(receiver);
}

TEST_F(PacketData, FailsInTimeWhileTheModemServiceDoesNotAnswer)
{
    configure(R"({"bearer": "networkmanager", "guards": {"replyMs": 300, "cellularMs": 1000}})");
    run("kill -STOP $(cat /run/lab/mm.pid)");
    Receiver receiver;
    NAPI_OpenLink("Home");
    EXPECT_EQ(receiver.next(), failed(0, NAPI_CAUSE_TIMEOUT, 0));
    run("kill -CONT $(cat /run/lab/mm.pid)");
    EXPECT_FALSE(within(Milliseconds(200), receiver));
}

TEST_F(PacketData, FailsInTimeWhileTheModemServiceStopsInTheDialling)
{
    configure(R"({"bearer": "networkmanager", "guards": {"cellularMs": 1000}})");
    modem("AT_OWANCALL=1,1 => silence");
    Receiver receiver;
    NAPI_OpenLink("Home");
    ASSERT_TRUE(until([this] { return got("AT_OWANCALL=1,1"); }));
    run("kill -STOP $(cat /run/lab/mm.pid)");
    EXPECT_EQ(receiver.next(), failed(0, NAPI_CAUSE_TIMEOUT, 0));
    run("kill -CONT $(cat /run/lab/mm.pid)");
    modem("forget");
    modem("send OK|_OWANCALL: 1, 1");
    EXPECT_TRUE(until([] { return stateOf("ttyHS0") == 30; }, Milliseconds(15000)));
    EXPECT_FALSE(receiver.ready());
}

TEST_F(PacketData, OfAModemThatIsSilentEndsInTime)
{
    configure(R"({"bearer": "networkmanager", "guards": {"cellularMs": 500}})");
    modem("AT_OWANCALL=1,1 => silence");
    Receiver receiver;
    NAPI_OpenLink("Home");
    EXPECT_EQ(receiver.next(), failed(0, NAPI_CAUSE_TIMEOUT, 0));
    modem("forget");
    modem("send OK|_OWANCALL: 1, 1");
    EXPECT_TRUE(until([] { return stateOf("ttyHS0") == 30; }, Milliseconds(15000)));
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

// Another connection is up, whose name server was there before.
class PacketDataBesideEthernet : public PacketData
{
protected:
    void SetUp() override
    {
        PacketData::SetUp();
        run("nmcli connection add type ethernet ifname eth9 con-name others autoconnect no && "
            "nmcli connection up others");
    }
    void TearDown() override
    {
        run("nmcli connection delete others");
        PacketData::TearDown();
    }
    static std::string firstServer() { return output("grep -m 1 nameserver /etc/resolv.conf"); }
};

TEST_F(PacketDataBesideEthernet, LeavesTheMachinesNameServersInFront)
{
    Receiver receiver;
    EXPECT_EQ(NAPI_DnsResolverConfig(up(receiver).link), 0);
    EXPECT_TRUE(until(
        [] { return output("cat /etc/resolv.conf").find("10.99.0.1") != std::string::npos; }));
    EXPECT_EQ(firstServer(), "nameserver 10.77.0.1");
    EXPECT_EQ(stateOf("ttyHS0"), 100);
}

TEST_F(PacketDataBesideEthernet, PutsItsNameServersFirstWhereTheConfigurationSaysSo)
{
    configure(R"({"bearer": "networkmanager", "nameServersFirst": true})");
    Receiver receiver;
    Message message = up(receiver);
    EXPECT_TRUE(until([] { return firstServer() == "nameserver 10.99.0.1"; })) << firstServer();
    EXPECT_EQ(NAPI_CloseLink(message.link), 0);
    EXPECT_TRUE(until([] { return firstServer() == "nameserver 10.77.0.1"; })) << firstServer();
}

TEST_F(PacketData, BreaksWhenTheNetworkDropsTheCall)
{
    Receiver receiver;
    Message message = up(receiver);
    modem("send _OWANCALL: 1, 0");
    EXPECT_EQ(receiver.next(), brokenModemLink(message.link));
    EXPECT_FALSE(within(Milliseconds(200), receiver));
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

class WithoutModemManager : public PacketData
{
protected:
    static void end() { run("kill -KILL $(cat /run/lab/mm.pid)"); }
    static void startAgain()
    {
        modem("forget");
        run(LAB_FOLDER "/daemon mm");
        EXPECT_TRUE(until([] { return stateOf("ttyHS0") == 30; }, Milliseconds(30000)));
    }
};

TEST_F(WithoutModemManager, PacketDataBreaksAndCannotBeOpened)
{
    Receiver receiver;
    Message message = up(receiver);
    end();
    EXPECT_EQ(receiver.next(), brokenModemLink(message.link));
    NAPI_CloseLink(message.link);
    NAPI_OpenLink("Home");
    EXPECT_EQ(receiver.next(), failed(0, NAPI_CAUSE_NO_SERVICE_DAEMON, 0));
    startAgain();
    EXPECT_FALSE(receiver.ready());
}

TEST_F(WithoutModemManager, AnOpeningUnderWayFailsOnce)
{
    modem("AT_OWANCALL=1,1 => silence");
    Receiver receiver;
    NAPI_OpenLink("Home");
    ASSERT_TRUE(until([this] { return got("AT_OWANCALL=1,1"); }));
    end();
    Message message = receiver.next();
    EXPECT_EQ(message.type, NAPI_IND_OPEN_FAILED);
    EXPECT_EQ(message.cause, NAPI_CAUSE_DEVICE_GONE);
    startAgain();
    EXPECT_FALSE(receiver.ready());
}

} // namespace
