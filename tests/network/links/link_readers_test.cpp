// What libnapi reads of the kernel's answers and of the machine's resolver file: any bytes may
// come.
#include <algorithm>
#include <cstring>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <linux/netlink.h>
#include <linux/rtnetlink.h>
#include <sys/socket.h>

#include "network/links/resolver_reader.h"
#include "network/links/route_reader.h"

using namespace std::string_literals;

namespace {

using network::DefaultRoute;
using network::readNameServers;

constexpr uint32_t requestNumber = 1;

template <typename Value> std::string bytesOf(const Value& value)
{
    return {reinterpret_cast<const char*>(&value), sizeof value};
}

std::string attribute(unsigned short type, const std::string& value)
{
    rtattr header = {};
    header.rta_type = type;
    header.rta_len = static_cast<unsigned short>(sizeof header + value.size());
    std::string bytes = bytesOf(header) + value;
    return bytes + std::string(RTA_ALIGN(bytes.size()) - bytes.size(), '\0');
}

std::string message(unsigned short type, const std::string& content,
                    uint32_t request = requestNumber)
{
    nlmsghdr header = {};
    header.nlmsg_type = type;
    header.nlmsg_seq = request;
    header.nlmsg_len = static_cast<uint32_t>(sizeof header + content.size());
    return bytesOf(header) + content;
}

std::string route(unsigned interface, int metric, uint32_t request = requestNumber)
{
    rtmsg content = {};
    content.rtm_family = AF_INET;
    content.rtm_table = RT_TABLE_MAIN;
    content.rtm_type = RTN_UNICAST;
    std::string bytes = bytesOf(content) + attribute(RTA_OIF, bytesOf(interface));
    if (metric >= 0)
        bytes += attribute(RTA_PRIORITY, bytesOf(static_cast<uint32_t>(metric)));
    return message(RTM_NEWROUTE, bytes, request);
}

// Reads bytes that have nothing behind them, so that a sanitizer sees the first one too many.
bool read(const std::string& bytes, DefaultRoute* best)
{
    const std::unique_ptr<char[]> exact(new char[bytes.size()]);
    std::copy(bytes.begin(), bytes.end(), exact.get());
    return network::readRoutes(exact.get(), bytes.size(), requestNumber, best);
}

TEST(RouteReader, TakesTheDefaultRouteWithTheLowestMetric)
{
    DefaultRoute best;
    EXPECT_TRUE(read(route(7, 600) + route(5, 100) + route(9, 300), &best));
    EXPECT_EQ(best.interface, 5u);
    EXPECT_EQ(best.metric, 100u);
    EXPECT_TRUE(read(route(3, -1), &best));
    EXPECT_EQ(best.interface, 3u) << "no metric is the best one";
}

// What "ip route add default nexthop dev A nexthop dev B" becomes.
std::string hop(int interface, unsigned char flags = 0)
{
    rtnexthop content = {};
    content.rtnh_len = sizeof content;
    content.rtnh_flags = flags;
    content.rtnh_ifindex = interface;
    return bytesOf(content);
}

std::string routeOver(const std::string& hops)
{
    rtmsg content = {};
    content.rtm_family = AF_INET;
    content.rtm_table = RT_TABLE_MAIN;
    content.rtm_type = RTN_UNICAST;
    return message(RTM_NEWROUTE, bytesOf(content) + attribute(RTA_MULTIPATH, hops));
}

TEST(RouteReader, TakesTheFirstOfTheInterfacesThatShareARoute)
{
    DefaultRoute best;
    EXPECT_TRUE(read(route(9, 600) + routeOver(hop(4) + hop(6)), &best));
    EXPECT_EQ(best.interface, 4u);
    EXPECT_EQ(best.metric, 0u);
}

TEST(RouteReader, PassesOverAnInterfaceThatIsDownInASharedRoute)
{
    DefaultRoute best;
    EXPECT_TRUE(read(routeOver(hop(4, RTNH_F_LINKDOWN) + hop(5, RTNH_F_DEAD) + hop(6)), &best));
    EXPECT_EQ(best.interface, 6u);
}

TEST(RouteReader, TakesNothingFromASharedRouteWhoseLengthsCannotBe)
{
    for (int length : {0, 1, 7, 9, 40, 65535}) {
        std::string hops = hop(4) + hop(6);
        auto wrong = static_cast<unsigned short>(length);
        hops.replace(0, sizeof wrong, bytesOf(wrong));
        DefaultRoute best;
        EXPECT_TRUE(read(routeOver(hops), &best));
        EXPECT_EQ(best.interface, length == 9 ? 4u : 0u) << length;
    }
}

TEST(RouteReader, EndsWithTheLastMessage)
{
    DefaultRoute best;
    EXPECT_FALSE(read(route(7, 600) + message(NLMSG_DONE, "") + route(5, 1), &best));
    EXPECT_EQ(best.interface, 7u);
}

TEST(RouteReader, PassesOverAnswersToOthers)
{
    DefaultRoute best;
    EXPECT_TRUE(
        read(route(7, 1, requestNumber + 1) + message(NLMSG_DONE, "", 0) + route(5, 9), &best));
    EXPECT_EQ(best.interface, 5u);
}

TEST(RouteReader, PassesOverARouteShorterThanItSays)
{
    DefaultRoute best;
    EXPECT_TRUE(read(message(RTM_NEWROUTE, std::string(4, '\2')) + route(5, 9), &best));
    EXPECT_EQ(best.interface, 5u);
}

TEST(RouteReader, TakesNothingFromAnAttributeTooShortForItsValue)
{
    rtmsg content = {};
    content.rtm_family = AF_INET;
    content.rtm_table = RT_TABLE_MAIN;
    content.rtm_type = RTN_UNICAST;
    DefaultRoute best;
    read(message(RTM_NEWROUTE, bytesOf(content) + attribute(RTA_OIF, "\7")), &best);
    EXPECT_EQ(best.interface, 0u);
}

TEST(RouteReader, RefusesLengthsThatCannotBe)
{
    for (const uint32_t length : {0u, 1u, 15u, 17u + 60u, 0x7FFFFFFFu, 0xFFFFFFFFu}) {
        std::string bytes = route(5, 9);
        std::memcpy(bytes.data(), &length, sizeof length);
        DefaultRoute best;
        EXPECT_FALSE(read(bytes, &best)) << length;
        EXPECT_EQ(best.interface, 0u) << length;
    }
}

TEST(RouteReader, ReadsNothingBeyondADatagramCutAnywhere)
{
    const std::string whole = route(7, 600) + route(5, 100);
    for (std::size_t length = 0; length < whole.size(); ++length) {
        DefaultRoute best;
        read(whole.substr(0, length), &best);
        EXPECT_TRUE(best.interface == 0 || best.interface == 7) << length;
    }
}

TEST(RouteReader, SurvivesChangedBytes)
{
    std::mt19937 random(20261121);
    const std::string whole = route(7, 600) + route(5, 100) + message(NLMSG_DONE, "");
    for (int round = 0; round < 50000; ++round) {
        std::string bytes = whole;
        for (int changes = 0; changes < 4; ++changes)
            bytes[random() % bytes.size()] = static_cast<char>(random());
        DefaultRoute best;
        read(bytes, &best);
    }
}

using Servers = std::vector<std::string>;

struct Row
{
    const char* label;
    std::string text;
    Servers servers;
};

const Row rows[] = {
    {"Empty", "", {}},
    {"One", "nameserver 10.1.2.3\n", {"10.1.2.3"}},
    {"NoLineEnd", "nameserver 10.1.2.3", {"10.1.2.3"}},
    {"Blanks", " \tnameserver\t 10.1.2.3 \r\n", {"10.1.2.3"}},
    {"Ipv6", "nameserver 2001:db8::53\nnameserver ::1\n", {"2001:db8::53", "::1"}},
    {"Scope", "nameserver fe80::1%wlan0\n", {"fe80::1%wlan0"}},
    {"OtherWords",
     "search a.example\n# nameserver 1.1.1.1\noptions x\nnameserver 2.2.2.2\n",
     {"2.2.2.2"}},
    {"NoAddress",
     "nameserver\nnameserver dns.example\nnameserver 1.2.3\nnameserver 010.1.1.1\n",
     {}},
    {"ScopeOfIpv4", "nameserver 1.2.3.4%wlan0\n", {}},
    {"OddScopes",
     "nameserver fe80::1%\nnameserver fe80::1%a/b\nnameserver fe80::1%0123456789abcdef\n",
     {}},
    {"Nul", "nameserver 1.2.3.4\0x\nnameserver 5.6.7.8\n"s, {"5.6.7.8"}},
    {"LongLine", "nameserver " + std::string(100000, '1') + "\nnameserver 5.6.7.8\n", {"5.6.7.8"}},
};

TEST(ResolverReader, TakesAddressesAndPassesOverEverythingElse)
{
    for (const Row& row : rows)
        EXPECT_EQ(readNameServers(row.text), row.servers) << row.label;
}

TEST(ResolverReader, TakesSixteenServersAtTheMost)
{
    std::string text;
    for (int i = 0; i < 1000; ++i)
        text += "nameserver 10.0.0." + std::to_string(i % 256) + "\n";
    const Servers servers = readNameServers(text);
    ASSERT_EQ(servers.size(), 16u);
    EXPECT_EQ(servers.back(), "10.0.0.15");
}

TEST(ResolverReader, SurvivesAnyBytes)
{
    std::mt19937 random(20261121);
    for (int round = 0; round < 2000; ++round) {
        std::string text = "nameserver fe80::1%wlan0\nnameserver 10.1.2.3\n";
        for (int changes = 0; changes < 8; ++changes)
            text[random() % text.size()] = static_cast<char>(random());
        for (const std::string& server : readNameServers(text))
            EXPECT_EQ(server.find_first_of(" \n"), std::string::npos);
    }
}

} // namespace
