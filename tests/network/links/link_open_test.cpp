#include "network/links/link_world.h"

#include <fstream>

#include <sys/resource.h>
#include <sys/socket.h>
#include <unistd.h>

using namespace linktest;

namespace {

class LinkOpen : public LinkTest
{};

TEST_F(LinkOpen, ConnectsAndTellsTheDevice)
{
    configure(R"({"bearer": "scenario", "scenario": {"default":
        {"device": "wwan7", "address": "10.20.30.40"}}})");
    store("Home");
    Receiver receiver;
    int link = NAPI_OpenLink("Home");
    EXPECT_EQ(link, 0);
    EXPECT_EQ(receiver.next(), connected(0, "wwan7", 0x0A141E28, 1));
}

struct KindRow
{
    const char* name;
    NetworkProfile record;
    int kind;
};
NetworkProfile preferring(uint32_t preference, const char* apn, const char* number)
{
    NetworkProfile record = {};
    record.flags = preference;
    strcpy(record.gprsApn, apn);
    strcpy(record.csdNumber, number);
    return record;
}
const KindRow kindRows[] = {
    {"PacketData", preferring(0, "internet", ""), 1},
    {"PacketDataBeforeDialling", preferring(0x400, "internet", "123"), 1},
    {"Dialled", preferring(0x400, "", "123"), 2},
    {"WifiOnly", preferring(0x100, "internet", "123"), 3},
    {"WifiFirst", preferring(0x200, "internet", ""), 3},
    {"WifiOnlyWithKeptBits", preferring(0xFFFFF1FF, "", ""), 3},
    {"Nothing", preferring(0, "", ""), 0},
};
class LinkKind : public LinkTest, public testing::WithParamInterface<KindRow>
{};
TEST_P(LinkKind, IsTheProfilesFirstChoice)
{
    configure(R"({"bearer": "scenario"})");
    store("Home", GetParam().record);
    Receiver receiver;
    NAPI_OpenLink("Home");
    EXPECT_EQ(receiver.next(), connected(0, "lo", 0x7F000001, GetParam().kind));
}
INSTANTIATE_TEST_SUITE_P(All, LinkKind, testing::ValuesIn(kindRows),
                         [](const auto& row) { return row.param.name; });

TEST_F(LinkOpen, FailsWithBothCausesAndFreesTheId)
{
    useScenarios();
    Receiver receiver;
    EXPECT_EQ(NAPI_OpenLink("Fail"), 0);
    EXPECT_EQ(receiver.next(), failed(0, 5, 691));
    EXPECT_EQ(NAPI_CloseLink(0), -210);
    EXPECT_EQ(NAPI_OpenLink("Home"), 0);
}

TEST_F(LinkOpen, GivesTheLowestFreeId)
{
    useScenarios();
    Receiver receiver;
    for (int link = 0; link < 5; ++link)
        EXPECT_EQ(NAPI_OpenLink("Home"), link);
    EXPECT_EQ(NAPI_CloseLink(3), 0);
    EXPECT_EQ(NAPI_CloseLink(1), 0);
    EXPECT_EQ(NAPI_OpenLink("Home"), 1);
    EXPECT_EQ(NAPI_OpenLink("Home"), 3);
    EXPECT_EQ(NAPI_OpenLink("Home"), 5);
}

TEST_F(LinkOpen, RefusesThe257thLink)
{
    useScenarios();
    Receiver receiver;
    for (int link = 0; link < 256; ++link)
        ASSERT_EQ(NAPI_OpenLink(link % 2 ? "Home" : "Never"), link);
    EXPECT_EQ(NAPI_OpenLink("Home"), -212);
    EXPECT_EQ(NAPI_CloseLink(255), 0);
    EXPECT_EQ(NAPI_OpenLink("Home"), 255);
}

TEST_F(LinkOpen, ClosesALinkOnce)
{
    useScenarios();
    Receiver receiver;
    int link = NAPI_OpenLink("Home");
    EXPECT_EQ(receiver.next(), connected(0));
    EXPECT_EQ(NAPI_CloseLink(link), 0);
    EXPECT_EQ(NAPI_CloseLink(link), -210);
}

TEST_F(LinkOpen, TakesNoIdThatCannotBe)
{
    useScenarios();
    Receiver receiver;
    char name[16];
    for (int link : {-2147483647 - 1, -1, 256, 257, 65536, 2147483647}) {
        EXPECT_EQ(NAPI_CloseLink(link), -210);
        EXPECT_EQ(NAPI_BindSocket2Link(link, 0), -210);
        EXPECT_EQ(NAPI_DnsResolverConfig(link), -210);
        EXPECT_EQ(NAPI_GetDeviceInfo(link, 0, name, 16), -210);
    }
}

TEST_F(LinkOpen, GivesNothingBeforeInitAndAfterFini)
{
    useScenarios();
    char name[16];
    auto refused = [&name] {
        EXPECT_EQ(NAPI_OpenLink("Home"), -201);
        EXPECT_EQ(NAPI_OpenLink(nullptr), -201);
        EXPECT_EQ(NAPI_CloseLink(0), -201);
        EXPECT_EQ(NAPI_BindSocket2Link(0, 0), -201);
        EXPECT_EQ(NAPI_DnsResolverConfig(0), -201);
        EXPECT_EQ(NAPI_GetDeviceInfo(0, 0, name, 16), -201);
        EXPECT_EQ(NAPI_Fini(), -201);
    };
    refused();
    Receiver receiver;
    EXPECT_EQ(receiver.finish(), 0);
    refused();
}

TEST_F(LinkOpen, RefusesAnUnknownMode)
{
    for (int mode : {-1, 1, 2, 3, 5})
        EXPECT_EQ(NAPI_Init(mode), -202);
    int socket = NAPI_Init(4);
    EXPECT_GE(socket, 0);
    EXPECT_EQ(NAPI_Fini(), 0);
    close(socket);
}

TEST_F(LinkOpen, NamesWhatIsWrongWithTheProfile)
{
    useScenarios();
    store("Short");
    std::ofstream(root() + "/vornlocal/download/appwrite/NetProfile/Short/profile") << "short";
    Receiver receiver;
    EXPECT_EQ(NAPI_OpenLink(nullptr), -202);
    EXPECT_EQ(NAPI_OpenLink(""), -203);
    EXPECT_EQ(NAPI_OpenLink("../Home"), -203);
    EXPECT_EQ(NAPI_OpenLink("Nobody"), -204);
    EXPECT_EQ(NAPI_OpenLink("Short"), -206);
    EXPECT_EQ(NAPI_OpenLink("Home"), 0) << "no id is lost";
}

TEST_F(LinkOpen, TellsOfARootOnWhichNoStoreCanStand)
{
    useScenarios();
    Receiver receiver;
    setenv("VORN_ROOT", "some/folder", 1);
    EXPECT_EQ(NAPI_OpenLink("Home"), NAPI_ERR_ROOT);
    setenv("VORN_ROOT", root().c_str(), 1);
    EXPECT_EQ(NAPI_OpenLink("Home"), 0) << "no id is lost";
}

TEST_F(LinkOpen, WaitsForAnswersWithoutADevice)
{
    useScenarios();
    Receiver receiver;
    int link = NAPI_OpenLink("Never");
    char name[16] = "untouched";
    EXPECT_EQ(NAPI_GetDeviceInfo(link, 0, name, 16), -211);
    EXPECT_STREQ(name, "untouched");
    EXPECT_EQ(NAPI_BindSocket2Link(link, 0), -211);
    EXPECT_EQ(NAPI_DnsResolverConfig(link), -211);
}

TEST_F(LinkOpen, CancelsAnOpeningThatIsNeverAnswered)
{
    useScenarios();
    Receiver receiver;
    int link = NAPI_OpenLink("Never");
    EXPECT_EQ(NAPI_CloseLink(link), 0);
    EXPECT_EQ(NAPI_OpenLink("Fail"), link);
    EXPECT_EQ(receiver.next(), failed(link, 5, 691)) << "and nothing of the cancelled opening";
}

TEST_F(LinkOpen, TellsNothingOfWhatWouldHaveHappenedToAClosedLink)
{
    configure(R"({"bearer": "scenario", "scenario": {"profiles": {
        "Slow": {"afterMs": 50}, "Breaks": {"breakAfterMs": 100},
        "Later": {"afterMs": 200, "outcome": "fail"}}}})");
    for (const char* name : {"Slow", "Breaks", "Later"})
        store(name);
    Receiver receiver;
    EXPECT_EQ(NAPI_OpenLink("Breaks"), 0);
    EXPECT_EQ(receiver.next(), connected(0));
    EXPECT_EQ(NAPI_OpenLink("Slow"), 1);
    EXPECT_EQ(NAPI_OpenLink("Later"), 2);
    usleep(1000); // the opening is with the bearer
    EXPECT_EQ(NAPI_CloseLink(0), 0);
    EXPECT_EQ(NAPI_CloseLink(1), 0);
    // On a loaded machine some of it may have happened before.
    Message last;
    while (auto early = receiver.ready())
        last = *early;
    EXPECT_EQ(last == failed(2, 2, 0) ? last : receiver.next(), failed(2, 2, 0));
}

TEST_F(LinkOpen, KeepsABrokenLinksIdUntilItIsClosed)
{
    configure(R"({"bearer": "scenario", "scenario": {"default": {"breakAfterMs": 1}}})");
    store("Home");
    Receiver receiver;
    EXPECT_EQ(NAPI_OpenLink("Home"), 0);
    EXPECT_EQ(receiver.next(), connected(0));
    EXPECT_EQ(receiver.next(), broken(0));
    char name[16];
    EXPECT_EQ(NAPI_GetDeviceInfo(0, 0, name, 16), -211);
    EXPECT_EQ(NAPI_OpenLink("Home"), 1);
    EXPECT_EQ(NAPI_CloseLink(0), 0);
    EXPECT_EQ(NAPI_OpenLink("Home"), 0);
}

TEST_F(LinkOpen, AnswersNotBeforeItsTime)
{
    configure(R"({"bearer": "scenario", "scenario":
        {"default": {"afterMs": 120, "breakAfterMs": 130}}})");
    store("Home");
    Receiver receiver;
    auto begin = std::chrono::steady_clock::now();
    NAPI_OpenLink("Home");
    EXPECT_EQ(receiver.next(), connected(0));
    EXPECT_GE(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(120));
    EXPECT_EQ(receiver.next(), broken(0));
    EXPECT_GE(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(250));
}

TEST_F(LinkOpen, AnswersTheSoonestFirst)
{
    configure(R"({"bearer": "scenario", "scenario": {"profiles": {
        "Slow": {"afterMs": 60}, "Quick": {"afterMs": 1, "outcome": "fail", "cause": 16}}}})");
    store("Slow");
    store("Quick");
    Receiver receiver;
    NAPI_OpenLink("Slow");
    NAPI_OpenLink("Quick");
    EXPECT_EQ(receiver.next(), failed(1, 16, 0));
    EXPECT_EQ(receiver.next(), connected(0));
}

TEST_F(LinkOpen, TakesUpAChangedConfiguration)
{
    useScenarios();
    Receiver receiver;
    NAPI_OpenLink("Home");
    EXPECT_EQ(receiver.next(), connected(0));
    configure(R"({"bearer": "scenario", "scenario": {"default": {"outcome": "fail"}}})");
    NAPI_OpenLink("Home");
    EXPECT_EQ(receiver.next(), failed(1, 2, 0));
}

TEST_F(LinkOpen, GivesNameAndAddressOfTheDevice)
{
    configure(R"({"bearer": "scenario", "scenario": {"default":
        {"device": "fifteen-letters", "address": "1.2.3.255"}}})");
    store("Home");
    Receiver receiver;
    int link = NAPI_OpenLink("Home");
    receiver.next();
    char name[20];
    memset(name, '#', sizeof name);
    EXPECT_EQ(NAPI_GetDeviceInfo(link, 0, name, 20), 0);
    EXPECT_EQ(memcmp(name, "fifteen-letters\0####", 20), 0);
    uint32_t address[2] = {7, 7};
    EXPECT_EQ(NAPI_GetDeviceInfo(link, 2, address, 8), 0);
    EXPECT_EQ(address[0], 0x010203FFu);
    EXPECT_EQ(address[1], 7u);
}

TEST_F(LinkOpen, RefusesUnknownItemsAndShortBuffers)
{
    useScenarios();
    Receiver receiver;
    int link = NAPI_OpenLink("Home");
    receiver.next();
    char buffer[16] = "untouched";
    struct
    {
        int item;
        void* buffer;
        int length;
    } const calls[] = {{0, buffer, 15},  {0, buffer, 0},   {0, buffer, -1},
                       {2, buffer, 3},   {1, buffer, 16},  {3, buffer, 16},
                       {-1, buffer, 16}, {0, nullptr, 16}, {2, nullptr, 4}};
    for (const auto& call : calls)
        EXPECT_EQ(NAPI_GetDeviceInfo(link, call.item, call.buffer, call.length), -202);
    EXPECT_STREQ(buffer, "untouched");
}

} // namespace
