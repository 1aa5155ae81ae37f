// What a profile becomes for NetworkManager.
#include <cstring>

#include <gtest/gtest.h>

#include "network/links/networkmanager/opening/profile_connection.h"

using network::ConnectionSettings;
using network::Opening;
using network::ProfileFault;

namespace {

Opening opening()
{
    Opening made;
    made.profile = "Internet";
    made.config = std::make_shared<network::NetworkConfig>();
    std::strcpy(made.record.gprsApn, "web.example");
    std::strcpy(made.record.gprsUserName, "me");
    std::strcpy(made.record.gprsPassword, "s3cret");
    return made;
}

template <typename Value>
void expectValue(const ConnectionSettings& settings, const char* section, const char* key,
                 const Value& expected)
{
    const network::Setting* found = settings.find(section, key);
    ASSERT_TRUE(found) << section << "." << key;
    const Value* value = std::get_if<Value>(&found->value);
    ASSERT_TRUE(value) << section << "." << key << " has another type";
    EXPECT_EQ(*value, expected);
}

std::vector<std::string> keysOf(const ConnectionSettings& settings)
{
    std::vector<std::string> keys;
    for (const network::Setting& setting : settings.entries())
        keys.push_back(std::string(setting.section) + "." + setting.key);
    return keys;
}

} // namespace

TEST(PacketDataSettings, AreTheProfileAndNothingElse)
{
    ConnectionSettings settings = packetDataSettings(opening(), "");
    EXPECT_EQ(keysOf(settings), (std::vector<std::string>{
                                    "connection.id", "connection.type", "connection.autoconnect",
                                    "gsm.apn", "gsm.username", "gsm.password", "ipv4.method",
                                    "ipv4.route-metric", "ipv6.method"}));
    expectValue(settings, "connection", "id", std::string("Internet"));
    expectValue(settings, "connection", "type", std::string("gsm"));
    expectValue(settings, "connection", "autoconnect", false);
    expectValue(settings, "gsm", "apn", std::string("web.example"));
    expectValue(settings, "gsm", "username", std::string("me"));
    expectValue(settings, "gsm", "password", std::string("s3cret"));
}

TEST(PacketDataSettings, LeaveTheMachineItsDefaultRoute)
{
    expectValue(packetDataSettings(opening(), ""), "ipv4", "route-metric", int64_t{20000});
}

TEST(PacketDataSettings, ReplaceTheNameServersOfTheNetworkByGivenOnes)
{
    Opening with = opening();
    with.record.gprsDns2 = 0x0A010203;
    ConnectionSettings settings = packetDataSettings(with, "");
    expectValue(settings, "ipv4", "ignore-auto-dns", true);
    // 10.1.2.3 in the byte order of the network, as this machine keeps it.
    unsigned char bytes[4] = {10, 1, 2, 3};
    uint32_t expected;
    std::memcpy(&expected, bytes, 4);
    expectValue(settings, "ipv4", "dns", std::vector<uint32_t>{expected});
}

TEST(PacketDataSettings, StayAtHomeOnlyWithoutRoaming)
{
    Opening home = opening();
    auto config = std::make_shared<network::NetworkConfig>();
    config->roaming = false;
    home.config = config;
    expectValue(packetDataSettings(home, ""), "gsm", "home-only", true);
    EXPECT_FALSE(packetDataSettings(opening(), "").find("gsm", "home-only"));
}

TEST(PacketDataSettings, PutTheirNameServersFirstWhereTheConfigurationSaysSo)
{
    Opening first = opening();
    auto config = std::make_shared<network::NetworkConfig>();
    config->nameServersFirst = true;
    first.config = config;
    expectValue(packetDataSettings(first, ""), "ipv4", "dns-priority", int32_t{1});
    EXPECT_FALSE(wiredSettings(first, "").find("ipv4", "dns-priority"));
    EXPECT_FALSE(packetDataSettings(opening(), "").find("ipv4", "dns-priority"));
}

TEST(PacketDataSettings, LeaveOutAnEmptyUserNameAndPassword)
{
    Opening without = opening();
    without.record.gprsUserName[0] = without.record.gprsPassword[0] = '\0';
    ConnectionSettings settings = packetDataSettings(without, "");
    EXPECT_FALSE(settings.find("gsm", "username"));
    EXPECT_FALSE(settings.find("gsm", "password"));
}

TEST(PacketDataSettings, BelongToAnOrdinaryUserAlone)
{
    expectValue(packetDataSettings(opening(), "anna"), "connection", "permissions",
                std::vector<std::string>{"user:anna:"});
}

TEST(PacketDataSettings, TakeAFieldThatIsFullAsItIs)
{
    Opening full = opening();
    std::memset(full.record.gprsApn, 'a', sizeof full.record.gprsApn);
    expectValue(packetDataSettings(full, ""), "gsm", "apn", std::string(100, 'a'));
}

TEST(WiredSettings, HaveNoModem)
{
    ConnectionSettings settings = wiredSettings(opening(), "");
    expectValue(settings, "connection", "type", std::string("802-3-ethernet"));
    expectValue(settings, "ipv4", "method", std::string("auto"));
    EXPECT_FALSE(settings.find("gsm", "password"));
}

namespace {

struct FaultRow
{
    const char* name;
    const char* apn;
    const char* user;
    const char* password;
    ProfileFault fault;
};

const FaultRow rows[] = {
    {"Usual", "internet.t-d1.de", "t-mobile", "tm", ProfileFault::None},
    {"WithoutUser", "a", "", "", ProfileFault::None},
    {"SignsOfAll", "a-b_c.1", "user@net/x", "p%!$&'()", ProfileFault::None},
    {"PasswordInUtf8", "a", "u", "p\xC3\xA4ss", ProfileFault::None},
    {"NoAccessPoint", "", "u", "p", ProfileFault::AccessPoint},
    {"BlankInAccessPoint", "a b", "u", "p", ProfileFault::AccessPoint},
    {"QuoteInAccessPoint", "a\",\"b", "u", "p", ProfileFault::AccessPoint},
    {"LineEndInAccessPoint", "a\rATD112;", "u", "p", ProfileFault::AccessPoint},
    {"ForeignLetterInAccessPoint", "\xC3\xA4", "u", "p", ProfileFault::AccessPoint},
    {"DeleteInAccessPoint", "a\x7F", "u", "p", ProfileFault::AccessPoint},
    {"LineEndInUserName", "a", "u\r\nAT+CFUN=0", "p", ProfileFault::UserName},
    {"QuoteInUserName", "a", "u\"", "p", ProfileFault::UserName},
    {"LineEndInPassword", "a", "u", "p\n", ProfileFault::Password},
    {"QuoteInPassword", "a", "u", "\"", ProfileFault::Password},
};

class FaultOf : public testing::TestWithParam<FaultRow>
{};

} // namespace

TEST_P(FaultOf, KeepsCommandsOutOfTheModem)
{
    NetworkProfile record = {};
    std::strcpy(record.gprsApn, GetParam().apn);
    std::strcpy(record.gprsUserName, GetParam().user);
    std::strcpy(record.gprsPassword, GetParam().password);
    EXPECT_EQ(network::faultOf(record), GetParam().fault);
}

INSTANTIATE_TEST_SUITE_P(All, FaultOf, testing::ValuesIn(rows),
                         [](const auto& row) { return row.param.name; });
