// The engine's thread when there is no memory for it: the program goes on, and so do the links.
#include "network/links/link_world.h"

#include <list>

#include <poll.h>
#include <sys/socket.h>

#include "network/links/failing_memory.h"
#include "network/links/fake_kernel.h"

using namespace linktest;
using std::chrono::milliseconds;
using Clock = std::chrono::steady_clock;

namespace {

class LinkMemory : public LinkTest
{
protected:
    // True when the receiver's stream ends without a message.
    static bool ends(const Receiver& receiver)
    {
        char byte;
        pollfd readable = {receiver.socket(), POLLIN, 0};
        return poll(&readable, 1, 60000) == 1 && recv(receiver.socket(), &byte, 1, 0) == 0;
    }
};

TEST_F(LinkMemory, TakesReceiversWithoutAnyOfTheThreads)
{
    useScenarios();
    Receiver first;
    std::list<Receiver> more;
    {
        ShortMemory memory;
        for (int i = 0; i < 40; ++i) {
            more.emplace_back();
            if (i % 10 == 0)
                workWhenAsleep(engineThread());
        }
        workWhenAsleep(engineThread());
    }
    NAPI_OpenLink("Home");
    EXPECT_EQ(first.next(), connected(0));
    for (Receiver& receiver : more)
        EXPECT_EQ(receiver.next(), connected(0));
}

TEST_F(LinkMemory, EndsTheStreamsForWhichThereIsNone)
{
    useScenarios();
    Receiver first, second;
    {
        ShortMemory memory;
        EXPECT_EQ(NAPI_OpenLink("Home"), 0);
        EXPECT_TRUE(ends(first));
        EXPECT_TRUE(ends(second));
    }
    Receiver after;
    EXPECT_EQ(NAPI_OpenLink("Home"), 0) << "the opening has failed and freed its id";
    EXPECT_EQ(after.next(), connected(0));
}

TEST_F(LinkMemory, BringsUpALinkWhoseDeadlineComesWithoutIt)
{
    configure(R"({"bearer": "scenario", "scenario": {"profiles": {"Late":
        {"afterMs": 300, "nameServers": ["10.1.1.1", "2001:db8:1111:2222:3333:4444:5555:6666"]}}}})");
    NetworkProfile record = packetProfile();
    record.gprsTimeout = 99;
    store("Late", record);
    store("Now");
    char name[16];
    for (bool late = true; late;) {
        Receiver receiver;
        auto begin = Clock::now();
        NAPI_OpenLink("Late");
        NAPI_OpenLink("Now");
        EXPECT_EQ(receiver.next(), connected(1)) << "so the first one is under way";
        ShortMemory memory;
        late = Clock::now() - begin >= milliseconds(300);
        if (!late) {
            EXPECT_TRUE(ends(receiver));
            EXPECT_EQ(NAPI_GetDeviceInfo(0, 0, name, 16), 0);
            EXPECT_STREQ(name, "lo");
        }
        NAPI_CloseLink(0);
        NAPI_CloseLink(1);
    }
}

TEST_F(LinkMemory, ShortOfItCountsNoTraffic)
{
    configure(R"({"bearer": "scenario", "minuteMs": 200,
        "scenario": {"default": {"device": "quiet0"}}})");
    NetworkProfile record = packetProfile();
    record.gprsTimeout = 1;
    store("Home", record);
    for (bool late = true; late;) {
        Receiver receiver;
        auto begin = Clock::now();
        NAPI_OpenLink("Home");
        EXPECT_EQ(receiver.next(), connected(0, "quiet0"));
        {
            ShortMemory memory;
            late = Clock::now() - begin >= milliseconds(200);
            for (int samples = 0; samples < 5 && !late; ++samples)
                EXPECT_TRUE(memory.refused());
            EXPECT_TRUE(late || !receiver.ready()) << "nobody has counted its packets";
        }
        if (!late) {
            EXPECT_EQ(receiver.next(), broken(0, "quiet0"));
        }
        NAPI_CloseLink(0);
    }
}

TEST_F(LinkMemory, AsksAgainWhatHasBecomeOfTheDevices)
{
    configure(R"({"interfaces": {"cellular": "wwan9"}})");
    store("Packet");
    FakeKernel machine;
    machine.add("wwan9", "10.2.2.2");
    Receiver receiver;
    NAPI_OpenLink("Packet");
    EXPECT_EQ(receiver.next(), connected(0, "wwan9", 0x0A020202));
    {
        ShortMemory memory;
        machine.remove("wwan9");
        EXPECT_TRUE(memory.refused());
    }
    EXPECT_EQ(receiver.next(), broken(0, "wwan9", 0x0A020202));
}

} // namespace
