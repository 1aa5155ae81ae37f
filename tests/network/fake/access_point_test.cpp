// The access point of the profile: what the services are asked for, and what they make of it.
#include <cerrno>

#include "network/fake/fake_test.h"

using namespace linktest;
using namespace fakebus;

namespace {

class AccessPoint : public FakeTest
{
protected:
    // What a modem service reports as the access point of the call, while it dials.
    void dialWith(const std::string& name)
    {
        nm->onActivate = [this, name] {
            mm->accessPoint(name);
            nm->connect();
        };
    }

    // The profile "Own", whose access point is this text, without a NUL where it fills the field.
    void storeWith(const std::string& name)
    {
        NetworkProfile record = {};
        ASSERT_LE(name.size(), sizeof record.gprsApn);
        name.copy(record.gprsApn, sizeof record.gprsApn);
        store("Own", record);
    }
};

// A modem service may fall back to one of an earlier call, which costs money or leads nowhere.
TEST_F(AccessPoint, OfAnotherNameThanTheProfilesFailsTheOpening)
{
    dialWith("rogue.example");
    Receiver receiver;
    NAPI_OpenLink("Home");
    EXPECT_EQ(next(receiver), failed(0, NAPI_CAUSE_SUBSCRIPTION, 0x100 + 29));
    EXPECT_TRUE(until([this] { return nm->living() == 0; }));
    rest();
    EXPECT_FALSE(receiver.ready());
}

TEST_F(AccessPoint, InTheNetworksSpellingIsTheProfiles)
{
    Receiver receiver;
    for (const char* name : {"internet", "INTERNET", "internet.mnc001.mcc262.gprs"}) {
        SCOPED_TRACE(name);
        dialWith(name);
        EXPECT_EQ(NAPI_CloseLink(up(receiver)), 0);
        EXPECT_TRUE(until([this] { return nm->living() == 0; }));
    }
}

TEST_F(AccessPoint, ThatNobodyTellsIsBelieved)
{
    mm->service.silence("GetAll");
    Receiver receiver;
    up(receiver);
}

TEST_F(AccessPoint, ThatFillsItsFieldIsToldWhole)
{
    const std::string full = std::string(99, 'a') + "z";
    storeWith(full);
    Receiver receiver;
    up(receiver, "Own");
    EXPECT_EQ(nm->settings().at("gsm.apn"), full);
}

struct BadRow
{
    const char* name;
    const char* accessPoint;
};
const BadRow badRows[] = {
    {"Quote", "internet\",\"evil"}, {"LineEnd", "internet\r\nATD112;"},
    {"Newline", "internet\nAT"},    {"Backslash", "inter\\net"},
    {"Semicolon", "internet;ATH"},  {"Comma", "internet,2"},
    {"Blank", "inter net"},         {"Escape", "internet\x1B"},
    {"NotAscii", "inter\xC3\xA9"},
};
class BadAccessPoint : public AccessPoint, public testing::WithParamInterface<BadRow>
{};
TEST_P(BadAccessPoint, IsNeverToldToTheService)
{
    storeWith(GetParam().accessPoint);
    Receiver receiver;
    NAPI_OpenLink("Own");
    EXPECT_EQ(next(receiver), failed(0, NAPI_CAUSE_SUBSCRIPTION, 0x300 + EINVAL));
    EXPECT_EQ(nm->service.countOf("AddAndActivateConnection2"), 0u);
}
INSTANTIATE_TEST_SUITE_P(All, BadAccessPoint, testing::ValuesIn(badRows),
                         [](const auto& row) { return row.param.name; });

TEST_F(AccessPoint, MayBeUsedAbroadUnlessTheConfigurationSaysOtherwise)
{
    Receiver receiver;
    EXPECT_EQ(NAPI_CloseLink(up(receiver)), 0);
    // Even a "false" of ours would be a word that the owner has not said.
    EXPECT_EQ(nm->settings().count("gsm.home-only"), 0u);
    configure(R"({"bearer": "networkmanager", "roaming": false})");
    up(receiver);
    EXPECT_EQ(nm->settings().at("gsm.home-only"), "true");
}

// What the service knows of operators by itself is never mixed with the profile.
TEST_F(AccessPoint, IsNeverLeftToTheService)
{
    Receiver receiver;
    up(receiver);
    EXPECT_EQ(nm->settings().count("gsm.auto-config"), 0u);
    EXPECT_EQ(nm->settings().at("connection.autoconnect"), "false");
    EXPECT_EQ(nm->options().at("persist"), "volatile");
    EXPECT_EQ(nm->options().at("bind-activation"), "dbus-client");
}

} // namespace
