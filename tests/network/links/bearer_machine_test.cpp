// Links over this machine's own interfaces: in a network namespace, and with a kernel played by the
// test.
#include "network/links/link_world.h"

#include <fstream>
#include <functional>
#include <sstream>

#include <sys/wait.h>
#include <unistd.h>

#include "network/links/fake_kernel.h"

using namespace linktest;

namespace {

enum class Kernel { Real, Fake };

// Runs a test in a process of its own, which for the real kernel is moved into a namespace of its
// own. Where that is not allowed the fake kernel serves.
class BearerTest : public LinkTest
{
protected:
    void onMachine(Kernel kernel, const std::function<void(Machine&)>& body)
    {
        expectInChild([kernel, &body] {
            bool real = kernel == Kernel::Real && enterNetworkNamespace();
            if (kernel == Kernel::Real && !real)
                puts("No network namespace is allowed here; the test plays the kernel instead.");
            run(real, body);
        });
    }

private:
    static void run(bool real, const std::function<void(Machine&)>& body)
    {
        if (real) {
            RealKernel machine;
            body(machine);
        } else {
            FakeKernel machine;
            body(machine);
        }
    }
};

struct Place
{
    const char* device;
    const char* address;
    bool down;
};

struct ChoiceRow
{
    const char* name;
    const char* interfaces; // of network.json
    NetworkProfile record;
    std::vector<Place> places;
    Message expected;
};

void PrintTo(const ChoiceRow& row, std::ostream* stream)
{
    *stream << row.name;
}

NetworkProfile profile(uint32_t preference, const char* apn, const char* number)
{
    NetworkProfile record = {};
    record.flags = preference;
    strcpy(record.gprsApn, apn);
    strcpy(record.csdNumber, number);
    return record;
}

constexpr uint32_t k10_1_1_1 = 0x0A010101;
constexpr char both[] = R"("wifi": "wlan9", "cellular": "wwan9")";
const Place wifi = {"wlan9", "10.1.1.1", false};
const Place cellular = {"wwan9", "10.2.2.2", false};
constexpr int noDevice = 0x300 + 19, netDown = 0x300 + 100, noAddress = 0x300 + 99; // errno

const ChoiceRow choiceRows[] = {
    {"LoopbackWithoutRoute", "", profile(0, "web", ""), {}, connected(0)},
    {"Wifi", both, profile(0x100, "", ""), {wifi}, connected(0, "wlan9", k10_1_1_1, 3)},
    {"Cellular",
     both,
     profile(0x400, "web", ""),
     {wifi, cellular},
     connected(0, "wwan9", 0x0A020202, 1)},
    {"NoPreferenceIsCellular",
     both,
     profile(0, "web", ""),
     {wifi, cellular},
     connected(0, "wwan9", 0x0A020202, 1)},
    {"WifiFirst",
     both,
     profile(0x200, "web", ""),
     {wifi, cellular},
     connected(0, "wlan9", k10_1_1_1, 3)},
    {"CellularAfterWifi",
     both,
     profile(0x200, "web", ""),
     {cellular},
     connected(0, "wwan9", 0x0A020202, 1)},
    {"WifiOnlyIsNotCellular", both, profile(0x100, "web", ""), {cellular}, failed(0, 9, noDevice)},
    {"MissingDevice", both, profile(0, "web", ""), {}, failed(0, 9, noDevice)},
    {"DeviceWithoutAddress",
     both,
     profile(0, "web", ""),
     {{"wwan9", "", false}},
     failed(0, 6, noAddress)},
    {"DeviceDown",
     both,
     profile(0, "web", ""),
     {{"wwan9", "10.2.2.2", true}},
     failed(0, 6, netDown)},
    {"NoneOfTheKind", R"("cellular": "")", profile(0, "web", ""), {}, failed(0, 1, 0)},
    {"DialledCall", both, profile(0, "", "123"), {cellular}, failed(0, 14, 0)},
    {"NothingToDial", both, profile(0, "", ""), {cellular}, failed(0, 1, 0)},
};

class BearerChoice : public BearerTest,
                     public testing::WithParamInterface<std::tuple<Kernel, ChoiceRow>>
{};

TEST_P(BearerChoice, FollowsProfileAndConfiguration)
{
    const auto& [kernel, choice] = GetParam();
    configure(std::string(R"({"interfaces": {)") + choice.interfaces + "}}");
    store("Home", choice.record);
    onMachine(kernel, [&row = choice](Machine& machine) {
        for (const Place& place : row.places) {
            machine.add(place.device, place.address);
            if (place.down)
                machine.setDown(place.device);
        }
        Receiver receiver;
        NAPI_OpenLink("Home");
        EXPECT_EQ(receiver.next(), row.expected);
    });
}

std::string kernelName(Kernel kernel)
{
    return kernel == Kernel::Real ? "Real" : "Fake";
}

INSTANTIATE_TEST_SUITE_P(All, BearerChoice,
                         testing::Combine(testing::Values(Kernel::Real, Kernel::Fake),
                                          testing::ValuesIn(choiceRows)),
                         [](const auto& row) {
                             return std::get<1>(row.param).name +
                                    kernelName(std::get<0>(row.param));
                         });

class BearerWatch : public BearerTest, public testing::WithParamInterface<Kernel>
{
protected:
    // Two links, over a device each, are up when the body begins.
    void withTwoLinks(const std::function<void(Machine&, Receiver&)>& body)
    {
        configure(R"({"interfaces": {"wifi": "wlan9", "cellular": "wwan9"}})");
        store("Wifi", wifiProfile());
        store("Packet");
        onMachine(GetParam(), [&body](Machine& machine) {
            machine.add("wlan9", "10.1.1.1");
            machine.add("wwan9", "10.2.2.2");
            Receiver receiver;
            NAPI_OpenLink("Wifi");
            EXPECT_EQ(receiver.next(), connected(0, "wlan9", k10_1_1_1, 3));
            NAPI_OpenLink("Packet");
            EXPECT_EQ(receiver.next(), connected(1, "wwan9", 0x0A020202, 1));
            body(machine, receiver);
        });
    }
};

const Message wifiBroken = broken(0, "wlan9", k10_1_1_1, 3);
const Message packetBroken = broken(1, "wwan9", 0x0A020202, 1);

TEST_P(BearerWatch, BreaksALinkWhoseAddressGoes)
{
    withTwoLinks([](Machine& machine, Receiver& receiver) {
        machine.removeAddress("wlan9", "10.1.1.1");
        EXPECT_EQ(receiver.next(), wifiBroken);
        machine.removeAddress("wwan9", "10.2.2.2");
        EXPECT_EQ(receiver.next(), packetBroken);
    });
}

TEST_P(BearerWatch, BreaksALinkWhoseDeviceIsTakenDown)
{
    withTwoLinks([](Machine& machine, Receiver& receiver) {
        machine.setDown("wwan9");
        EXPECT_EQ(receiver.next(), packetBroken);
        char name[16];
        EXPECT_EQ(NAPI_GetDeviceInfo(0, 0, name, 16), 0);
        EXPECT_STREQ(name, "wlan9");
        EXPECT_EQ(NAPI_GetDeviceInfo(1, 0, name, 16), -211);
    });
}

TEST_P(BearerWatch, BreaksALinkWhoseDeviceGoes)
{
    withTwoLinks([](Machine& machine, Receiver& receiver) {
        machine.remove("wlan9");
        EXPECT_EQ(receiver.next(), wifiBroken);
        EXPECT_EQ(NAPI_CloseLink(0), 0);
        EXPECT_EQ(NAPI_OpenLink("Wifi"), 0);
        EXPECT_EQ(receiver.next(), failed(0, 9, noDevice));
    });
}

TEST_P(BearerWatch, LeavesALinkAloneWhenSomethingElseChanges)
{
    withTwoLinks([](Machine& machine, Receiver& receiver) {
        machine.add("other9", "10.3.3.3");
        machine.setDown("other9");
        machine.remove("other9");
        machine.removeAddress("wwan9", "10.2.2.2");
        EXPECT_EQ(receiver.next(), packetBroken) << "the first message since";
    });
}

TEST_P(BearerWatch, TellsNothingOfAClosedLink)
{
    withTwoLinks([](Machine& machine, Receiver& receiver) {
        EXPECT_EQ(NAPI_CloseLink(0), 0);
        machine.remove("wlan9");
        machine.remove("wwan9");
        EXPECT_EQ(receiver.next(), packetBroken);
    });
}

TEST_P(BearerWatch, FindsOutWhatWentWhileNobodyListened)
{
    withTwoLinks([](Machine& machine, Receiver& receiver) {
        receiver.finish();
        machine.remove("wwan9");
        Receiver after;
        EXPECT_EQ(after.next(), packetBroken);
        EXPECT_EQ(NAPI_CloseLink(0), 0) << "the other one stayed up";
    });
}

INSTANTIATE_TEST_SUITE_P(All, BearerWatch, testing::Values(Kernel::Real, Kernel::Fake),
                         [](const auto& row) { return kernelName(row.param); });

class BearerTrouble : public LinkTest
{
protected:
    void SetUp() override
    {
        LinkTest::SetUp();
        configure(R"({"interfaces": {"cellular": "wwan9"}})");
        store("Packet");
    }
};

const Message up = connected(0, "wwan9", 0x0A020202, 1);
const Message gone = broken(0, "wwan9", 0x0A020202, 1);

TEST_F(BearerTrouble, LosesNoChangeWhenTheNetlinkSocketRunsOver)
{
    FakeKernel machine;
    machine.add("wwan9", "10.2.2.2");
    Receiver receiver;
    NAPI_OpenLink("Packet");
    EXPECT_EQ(receiver.next(), up);
    machine.loseNews("wwan9");
    EXPECT_EQ(receiver.next(), gone);
}

TEST_F(BearerTrouble, TakesNoNewsFromAnybodyButTheKernel)
{
    FakeKernel machine;
    machine.add("wwan9", "10.2.2.2");
    Receiver receiver;
    NAPI_OpenLink("Packet");
    EXPECT_EQ(receiver.next(), up);
    machine.pretendNews("wwan9");
    workWhenAsleep(engineThread());
    EXPECT_FALSE(receiver.ready());
    machine.tellNews();
    EXPECT_EQ(receiver.next(), gone);
}

TEST_F(BearerTrouble, FailsToOpenWithTheKernelsError)
{
    FakeKernel machine;
    machine.refuse(EMFILE);
    Receiver receiver;
    NAPI_OpenLink("Packet");
    EXPECT_EQ(receiver.next(), failed(0, 65535, 0x300 + EMFILE));
}

TEST_F(BearerTrouble, AsksAgainWhenTheKernelDidNotAnswer)
{
    FakeKernel machine;
    machine.add("wwan9", "10.2.2.2");
    Receiver receiver;
    NAPI_OpenLink("Packet");
    EXPECT_EQ(receiver.next(), up);
    machine.refuse(EMFILE);
    machine.remove("wwan9");
    usleep(50000); // the engine has asked, and got no answer
    machine.refuse(0);
    EXPECT_EQ(receiver.next(), gone);
}

// The interface of the best default route, as the kernel's own table tells it; "" for none.
std::string routedInterface()
{
    std::ifstream table("/proc/thread-self/net/route");
    std::string line, best;
    long bestMetric = -1;
    while (std::getline(table, line)) {
        std::istringstream fields(line);
        std::string name, destination, gateway, flags, count, use, mask;
        long metric = 0;
        fields >> name >> destination >> gateway >> flags >> count >> use >> metric >> mask;
        bool isDefault = destination == "00000000" && mask == "00000000";
        if (isDefault && (bestMetric < 0 || metric < bestMetric)) {
            best = name;
            bestMetric = metric;
        }
    }
    return best;
}

void expectRoutedInterface()
{
    std::string usual = routedInterface();
    Receiver receiver;
    NAPI_OpenLink("Home");
    Message message = receiver.next();
    EXPECT_EQ(message.type, 16);
    EXPECT_EQ(message.device, usual.empty() ? "lo" : usual);
}

class BearerRoute : public LinkTest
{};

TEST_F(BearerRoute, OfThisMachineIsTaken)
{
    store("Home");
    expectRoutedInterface();
}

TEST_F(BearerRoute, WithTheLowestMetricIsTaken)
{
    store("Home");
    expectInChild([] {
        if (enterNetworkNamespace()) {
            RealKernel machine;
            for (const char* device : {"first9", "second9", "third9"})
                machine.add(device, "10." + std::to_string(device[0]) + ".1.1");
            machine.addDefaultRoute("first9", 300);
            machine.addDefaultRoute("second9", 100);
            machine.addDefaultRoute("third9", 200);
            EXPECT_EQ(routedInterface(), "second9");
        }
        expectRoutedInterface();
    });
}

} // namespace
