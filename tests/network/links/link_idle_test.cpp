// The idle time-out: the minutes of the profile, without traffic on the device.
#include "network/links/link_world.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

using namespace linktest;
using std::chrono::milliseconds;
using Clock = std::chrono::steady_clock;

namespace {

class LinkIdle : public LinkTest
{
protected:
    // "Home", on a device that carries no traffic.
    void storeWithAPeriodOfASecond()
    {
        configure(R"({"bearer": "scenario", "minuteMs": 1000,
            "scenario": {"default": {"device": "quiet0"}}})");
        NetworkProfile record = packetProfile();
        record.gprsTimeout = 1;
        store("Home", record);
    }
};

// A device that the machine does not have carries no traffic.
constexpr char quietDevice[] = R"({"bearer": "scenario", "minuteMs": 40,
    "scenario": {"default": {"device": "quiet0"}}})";

TEST_F(LinkIdle, EndsAQuietPacketLinkAfterItsMinutes)
{
    configure(quietDevice);
    NetworkProfile record = packetProfile();
    record.gprsTimeout = 5;
    record.csdTimeout = 1;
    store("Home", record);
    Receiver receiver;
    auto begin = Clock::now();
    NAPI_OpenLink("Home");
    EXPECT_EQ(receiver.next(), connected(0, "quiet0"));
    EXPECT_EQ(receiver.next(), broken(0, "quiet0"));
    EXPECT_GE(Clock::now() - begin, milliseconds(200));
}

TEST_F(LinkIdle, EndsAQuietDialledLinkAfterItsOwnMinutes)
{
    configure(quietDevice);
    NetworkProfile record = dialledProfile();
    record.gprsTimeout = 1;
    record.csdTimeout = 5;
    store("Home", record);
    Receiver receiver;
    auto begin = Clock::now();
    NAPI_OpenLink("Home");
    EXPECT_EQ(receiver.next(), connected(0, "quiet0", 0x7F000001, 2));
    EXPECT_EQ(receiver.next(), broken(0, "quiet0", 0x7F000001, 2));
    EXPECT_GE(Clock::now() - begin, milliseconds(200));
}

TEST_F(LinkIdle, WakesTheEngineFourTimesInAPeriod)
{
    storeWithAPeriodOfASecond();
    Receiver receiver;
    NAPI_OpenLink("Home");
    EXPECT_EQ(receiver.next(), connected(0, "quiet0"));
    int thread = engineThread();
    workWhenAsleep(thread);
    long before = sleepsOf(thread);
    EXPECT_EQ(receiver.next(), broken(0, "quiet0"));
    EXPECT_LE(sleepsOf(thread) - before, 4);
}

// The traffic is looked at four times in a period, so that the end comes a quarter of it late at
// the most. A loaded machine may be late besides; then the next of a few links shows it.
TEST_F(LinkIdle, EndsAQuietLinkWithinAQuarterOfItsPeriodMore)
{
    storeWithAPeriodOfASecond();
    Receiver receiver;
    auto soonest = milliseconds::max();
    for (int attempt = 0; attempt < 5 && soonest > milliseconds(1250); ++attempt) {
        int link = NAPI_OpenLink("Home");
        EXPECT_EQ(receiver.next(), connected(link, "quiet0"));
        auto begin = Clock::now();
        EXPECT_EQ(receiver.next(), broken(link, "quiet0"));
        soonest = std::min(soonest, std::chrono::duration_cast<milliseconds>(Clock::now() - begin));
    }
    // Waking up is never exact to the millisecond.
    EXPECT_LE(soonest, milliseconds(1250 + 100));
}

TEST_F(LinkIdle, LetsAWifiLinkBe)
{
    configure(quietDevice);
    NetworkProfile record = wifiProfile();
    record.gprsTimeout = 1;
    record.csdTimeout = 1;
    store("Wifi", record);
    NetworkProfile quick = packetProfile();
    quick.gprsTimeout = 3;
    store("Packet", quick);
    NetworkProfile endless = packetProfile();
    endless.csdTimeout = 1;
    store("Endless", endless);
    Receiver receiver;
    for (const char* name : {"Wifi", "Endless", "Packet"})
        NAPI_OpenLink(name);
    EXPECT_EQ(receiver.next(), connected(0, "quiet0", 0x7F000001, 3));
    EXPECT_EQ(receiver.next(), connected(1, "quiet0"));
    EXPECT_EQ(receiver.next(), connected(2, "quiet0"));
    EXPECT_EQ(receiver.next(), broken(2, "quiet0")) << "the others would have ended long ago";
}

void sendOnePacket()
{
    int socket = ::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    sockaddr_in self = {};
    self.sin_family = AF_INET;
    self.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    bind(socket, reinterpret_cast<sockaddr*>(&self), sizeof self);
    socklen_t size = sizeof self;
    getsockname(socket, reinterpret_cast<sockaddr*>(&self), &size);
    EXPECT_EQ(sendto(socket, "x", 1, 0, reinterpret_cast<sockaddr*>(&self), size), 1);
    close(socket);
}

// Keeps the loopback busy for three periods. On a loaded machine the test itself may pause for a
// whole period; a link that ended then is opened again.
TEST_F(LinkIdle, KeepsALinkWithTraffic)
{
    configure(R"({"bearer": "scenario", "minuteMs": 200})");
    NetworkProfile record = packetProfile();
    record.gprsTimeout = 1;
    store("Home", record);
    Receiver receiver;
    auto begin = Clock::now() - milliseconds(1000);
    auto last = Clock::now() - milliseconds(1000);
    do {
        bool paused = Clock::now() - last >= milliseconds(90);
        last = Clock::now();
        if (paused) {
            NAPI_CloseLink(0);
            while (receiver.ready()) {
            }
            begin = Clock::now();
            ASSERT_EQ(NAPI_OpenLink("Home"), 0);
            ASSERT_EQ(receiver.next(), connected(0));
        }
        sendOnePacket();
        usleep(5000);
        bool told = receiver.ready().has_value();
        ASSERT_FALSE(told && Clock::now() - last < milliseconds(90)) << "in spite of its traffic";
    } while (Clock::now() - begin < milliseconds(600));
}

} // namespace
