// Which device carries a link, by what the services say; replies of wrong types included.
#include <gtest/gtest.h>

#include "network/links/networkmanager/services/device_choice.h"

using network::BusValue;
using network::DeviceChoice;
using network::NetworkConfig;
using network::ServiceDevice;
using network::ServicePicture;
using Way = DeviceChoice::Way;

namespace {

constexpr int switchedOff = 0x384;

ServiceDevice device(unsigned type, unsigned state, const std::string& interface)
{
    ServiceDevice made;
    made.path = "/device/" + interface;
    made.interface = interface;
    made.type = type;
    made.state = state;
    made.managed = true;
    return made;
}

ServicePicture picture(const ServiceDevice& one)
{
    ServicePicture made;
    made.devices = {one};
    return made;
}

ServicePicture withModem(int64_t state, unsigned power, unsigned lock, unsigned failedReason = 0)
{
    ServiceDevice modem = device(8, 30, "cdc-wdm0");
    modem.modem = "/modem/0";
    ServicePicture made = picture(modem);
    network::ServiceModem facts;
    facts.path = "/modem/0";
    facts.state = state;
    facts.power = power;
    facts.lock = lock;
    facts.failedReason = failedReason;
    made.modems = {facts};
    return made;
}

void expectRefusal(const DeviceChoice& choice, int cause, int detail)
{
    EXPECT_EQ(choice.way, Way::None);
    EXPECT_EQ(choice.cause.cause, cause);
    EXPECT_EQ(choice.cause.detail, detail);
}

DeviceChoice cellular(const ServicePicture& told, const NetworkConfig& config = {})
{
    return chooseDevice(NAPI_BEARER_GPRS, config, told);
}

DeviceChoice wifi(const ServicePicture& told, const NetworkConfig& config = {})
{
    return chooseDevice(NAPI_BEARER_WIFI, config, told);
}

} // namespace

TEST(DeviceChoice, DialsAModemThatIsFree)
{
    DeviceChoice choice = cellular(picture(device(8, 30, "cdc-wdm0")));
    EXPECT_EQ(choice.way, Way::Dial);
    EXPECT_EQ(choice.device.path, "/device/cdc-wdm0");
}

TEST(DeviceChoice, DialsAbroadUnlessTheConfigurationSaysOtherwise)
{
    ServicePicture abroad = withModem(8, 3, 1);
    abroad.modems[0].registration = 5;
    EXPECT_EQ(cellular(abroad).way, Way::Dial);
    NetworkConfig config;
    config.roaming = false;
    expectRefusal(cellular(abroad, config), NAPI_CAUSE_NO_SERVICE, 0x300 + ERFKILL);
    abroad.modems[0].registration = 1;
    EXPECT_EQ(cellular(abroad, config).way, Way::Dial);
}

TEST(DeviceChoice, JoinsAModemThatIsUpOrComingUp)
{
    for (unsigned state : {40u, 60u, 70u, 100u})
        EXPECT_EQ(cellular(picture(device(8, state, "cdc-wdm0"))).way, Way::Join) << state;
}

TEST(DeviceChoice, PrefersAFreeModemToOneThatIsUp)
{
    ServicePicture two = picture(device(8, 100, "a"));
    two.devices.push_back(device(8, 30, "b"));
    EXPECT_EQ(cellular(two).device.interface, "b");
}

TEST(DeviceChoice, FollowsTheNameInTheConfiguration)
{
    ServicePicture two = picture(device(8, 30, "a"));
    two.devices.push_back(device(8, 30, "b"));
    NetworkConfig config;
    config.cellular = "b";
    EXPECT_EQ(cellular(two, config).device.interface, "b");
    config.cellular = "c";
    expectRefusal(cellular(two, config), 9, 0x300 + 19);
    config.cellular = "";
    expectRefusal(cellular(two, config), 1, 0);
}

TEST(DeviceChoice, FindsNoModemAmongOtherDevices)
{
    expectRefusal(cellular(picture(device(1, 30, "eth0"))), 1, 0x300 + 19);
    expectRefusal(cellular({}), 1, 0x300 + 19);
}

TEST(DeviceChoice, LeavesOffWhatWasSwitchedOff)
{
    ServicePicture off = picture(device(8, 20, "cdc-wdm0"));
    off.wwan = false;
    expectRefusal(cellular(off), 2, switchedOff);
    off = picture(device(2, 20, "wlan0"));
    off.wifi = false;
    expectRefusal(wifi(off), 2, switchedOff);
    off = picture(device(8, 30, "cdc-wdm0"));
    off.networking = false;
    expectRefusal(cellular(off), 2, switchedOff);
    expectRefusal(cellular(withModem(3, 1, 1)), 2, switchedOff);
    expectRefusal(cellular(withModem(3, 2, 1)), 2, switchedOff);
}

TEST(DeviceChoice, TellsWhatTheSimLacks)
{
    expectRefusal(cellular(withModem(-1, 3, 0, 2)), 3, 10);
    expectRefusal(cellular(withModem(-1, 3, 0, 3)), 3, 13);
    expectRefusal(cellular(withModem(2, 3, 4)), 3, 12);
    EXPECT_EQ(cellular(withModem(2, 3, 2)).way, Way::Dial) << "somebody may know the PIN";
    EXPECT_EQ(cellular(withModem(8, 3, 3)).way, Way::Dial) << "PIN2 is not asked for data";
}

TEST(DeviceChoice, LeavesAloneWhatTheServiceDoesNotManage)
{
    ServiceDevice unmanaged = device(8, 10, "cdc-wdm0");
    unmanaged.managed = false;
    expectRefusal(cellular(picture(unmanaged)), 1, 0x100);
}

TEST(DeviceChoice, TellsWhyADeviceIsUnavailable)
{
    ServiceDevice modem = device(8, 20, "cdc-wdm0");
    modem.reason = 57;
    expectRefusal(cellular(picture(modem)), 7, 0x100 + 57);
    NetworkConfig config;
    config.wifi = "eth0";
    ServiceDevice wired = device(1, 20, "eth0");
    wired.reason = 40;
    expectRefusal(wifi(picture(wired), config), 8, 0x100 + 40);
}

TEST(DeviceChoice, ActivatesWhatTheServiceKnowsOfWifi)
{
    ServiceDevice wlan = device(2, 30, "wlan0");
    expectRefusal(wifi(picture(wlan)), 2, 0);
    wlan.known = true;
    EXPECT_EQ(wifi(picture(wlan)).way, Way::Known);
}

TEST(DeviceChoice, TakesAnEthernetForWifiWhereItIsNamed)
{
    ServiceDevice wired = device(20, 30, "eth9");
    expectRefusal(wifi(picture(wired)), 1, 0x300 + 19);
    NetworkConfig config;
    config.wifi = "eth9";
    EXPECT_EQ(wifi(picture(wired), config).way, Way::Dial);
    wired.known = true;
    EXPECT_EQ(wifi(picture(wired), config).way, Way::Known);
}

TEST(ServicePicture, SurvivesRepliesOfOtherTypes)
{
    for (const BusValue& reply : {BusValue(), BusValue::number(7), BusValue::text("x"),
                                  BusValue::list({BusValue::number(1)}), BusValue::dictionary()}) {
        ServicePicture read;
        readNetworkManager(reply, &read);
        readModemManager(reply, &read);
        EXPECT_TRUE(read.devices.empty());
        EXPECT_TRUE(read.modems.empty());
        EXPECT_TRUE(read.wwan) << "what is not told is not off";
    }
}

TEST(ServicePicture, ReadsPropertiesOfOtherTypesAsAbsent)
{
    BusValue properties = BusValue::dictionary();
    properties.add("Interface", BusValue::number(5));
    properties.add("State", BusValue::text("100"));
    properties.add("StateReason", BusValue::number(3));
    properties.add("Managed", BusValue::number(1));
    properties.add("Udi", BusValue::list({}));
    properties.add("DeviceType", BusValue::number(8));
    BusValue interfaces = BusValue::dictionary();
    interfaces.add("org.freedesktop.NetworkManager.Device", properties);
    BusValue objects = BusValue::dictionary();
    objects.add("/device/0", interfaces);
    ServicePicture read;
    readNetworkManager(objects, &read);
    ASSERT_EQ(read.devices.size(), 1u);
    EXPECT_EQ(read.devices[0].interface, "");
    EXPECT_EQ(read.devices[0].state, 0u);
    EXPECT_EQ(read.devices[0].reason, 0u);
    EXPECT_FALSE(read.devices[0].managed);
    EXPECT_EQ(read.devices[0].type, 8u);
}
