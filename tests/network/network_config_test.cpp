// etc/network.json: what is wrong in it is told with its line, and its default is used.
#include "network/links/link_world.h"

#include <filesystem>

#include <sys/stat.h>
#include <unistd.h>

#include "network/napi_host.h"

using namespace linktest;
namespace fs = std::filesystem;

namespace {

class NetworkConfig : public LinkTest
{
protected:
    std::string path() const { return root() + "/etc/network.json"; }

    // What a call says on standard error.
    template <typename Call> static std::string told(Call call)
    {
        testing::internal::CaptureStderr();
        call();
        return testing::internal::GetCapturedStderr();
    }
};

struct Row
{
    const char* name;
    const char* json;
    std::vector<std::string> lines; // each after the path of the file
};

void PrintTo(const Row& row, std::ostream* stream)
{
    *stream << row.name;
}

constexpr char keys[] = "bearer, interfaces, takeOver, roaming, nameServersFirst, guards, "
                        "scenario, maxProfiles, minuteMs";
constexpr char scenarioKeys[] =
    "outcome, afterMs, cause, detail, device, address, nameServers, breakAfterMs";

const Row rows[] = {
    {"NoObject", "[1]", {":1: expected an object, found an array; using an empty one instead"}},
    {"UnknownBearer",
     "{\n\"bearer\": \"pigeon\"}",
     {":2: bearer: expected one of the texts \"machine\", \"scenario\", \"networkmanager\", found "
      "the text \"pigeon\"; "
      "using \"machine\" instead"}},
    {"BearerIsNoText",
     "{\"bearer\": 3}",
     {":1: bearer: expected one of the texts \"machine\", \"scenario\", \"networkmanager\", found "
      "the number 3; "
      "using \"machine\" instead"}},
    {"UnknownKey",
     "{\n\n\"berer\": \"machine\"}",
     {std::string(":3: berer: expected one of the keys ") + keys +
      ", found an unknown key; using the file without it instead"}},
    {"TakeOverIsNoBoolean",
     "{\"takeOver\": 1}",
     {":1: takeOver: expected true or false, found the number 1; using false instead"}},
    {"RoamingIsNoBoolean",
     "{\"roaming\": \"no\"}",
     {":1: roaming: expected true or false, found the text \"no\"; using true instead"}},
    {"NameServersFirstIsNoBoolean",
     "{\"nameServersFirst\": \"yes\"}",
     {":1: nameServersFirst: expected true or false, found the text \"yes\"; using false instead"}},
    {"GuardIsZero",
     "{\"guards\": {\"cellularMs\": 0}}",
     {":1: guards.cellularMs: expected an integer from 1 to 86400000, found the number 0; using "
      "90000 instead"}},
    {"GuardIsLongerThanADay",
     "{\"guards\": {\"secretMs\": 86400001}}",
     {":1: guards.secretMs: expected an integer from 1 to 86400000, found the number 86400001; "
      "using 4500 instead"}},
    {"UnknownGuard",
     "{\"guards\": {\"modemMs\": 5}}",
     {":1: guards.modemMs: expected one of the keys replyMs, cellularMs, wifiMs, secretMs, found "
      "an "
      "unknown key; using the file without it instead"}},
    {"InterfacesIsNoObject",
     "{\"interfaces\": \"wlan0\"}",
     {":1: interfaces: expected an object, found the text \"wlan0\"; using an empty one instead"}},
    {"InterfaceNameTooLong",
     "{\"interfaces\": {\"wifi\": \"sixteen-letters-\"}}",
     {":1: interfaces.wifi: expected the name of a network device, at most 15 bytes, found the "
      "text "
      "\"sixteen-letters-\"; using the default route's interface instead"}},
    {"InterfaceNameWithSlash",
     "{\"interfaces\": {\"cellular\": \"a/b\"}}",
     {":1: interfaces.cellular: expected the name of a network device, at most 15 bytes, found the "
      "text \"a/b\"; using the default route's interface instead"}},
    {"InterfaceIsNoText",
     "{\"interfaces\": {\"wifi\": false}}",
     {":1: interfaces.wifi: expected the name of a network device, at most 15 bytes, found false; "
      "using the default route's interface instead"}},
    {"UnknownInterface",
     "{\"interfaces\": {\"wlan\": \"wlan0\"}}",
     {":1: interfaces.wlan: expected one of the keys wifi, cellular, found an unknown key; using "
      "the file without it instead"}},
    {"MinuteTooShort",
     "{\"minuteMs\": 0}",
     {":1: minuteMs: expected an integer from 1 to 60000, found the number 0; using 60000 "
      "instead"}},
    {"MinuteTooLong",
     "{\"minuteMs\": 60001}",
     {":1: minuteMs: expected an integer from 1 to 60000, found the number 60001; using 60000 "
      "instead"}},
    {"NoProfilesAtAll",
     "{\"maxProfiles\": 0}",
     {":1: maxProfiles: expected an integer from 1 to 65535, found the number 0; using 1024 "
      "instead"}},
    {"TooManyProfiles",
     "{\"maxProfiles\": 65536}",
     {":1: maxProfiles: expected an integer from 1 to 65535, found the number 65536; using 1024 "
      "instead"}},
    {"ProfilesIsNoInteger",
     "{\"maxProfiles\": 2.5}",
     {":1: maxProfiles: expected an integer from 1 to 65535, found the number 2.5; using 1024 "
      "instead"}},
    {"ScenarioIsNoObject",
     "{\"scenario\": []}",
     {":1: scenario: expected an object, found an array; using an empty one instead"}},
    {"UnknownOutcome",
     "{\"scenario\": {\"default\": {\"outcome\": \"maybe\"}}}",
     {":1: scenario.default.outcome: expected one of the texts \"connect\", \"fail\", \"never\", "
      "found the text \"maybe\"; using \"connect\" instead"}},
    {"UnknownScenarioKey",
     "{\"scenario\": {\"profiles\": {\"Home\": {\"after\": 3}}}}",
     {std::string(":1: scenario.profiles.Home.after: expected one of the keys ") + scenarioKeys +
      ", found an unknown key; using the file without it instead"}},
    {"NegativeTime",
     "{\"scenario\": {\"default\": {\"afterMs\": -1}}}",
     {":1: scenario.default.afterMs: expected an integer from 0 to 86400000, found the number -1; "
      "using 0 instead"}},
    {"BreakIsNoTime",
     "{\"scenario\": {\"default\": {\"breakAfterMs\": \"soon\"}}}",
     {":1: scenario.default.breakAfterMs: expected an integer from 0 to 86400000, found the text "
      "\"soon\"; using no breaking instead"}},
    {"BreakAfterDays",
     "{\"scenario\": {\"default\": {\"breakAfterMs\": 86400001}}}",
     {":1: scenario.default.breakAfterMs: expected an integer from 0 to 86400000, found the number "
      "86400001; using no breaking instead"}},
    {"CauseZero",
     "{\"scenario\": {\"default\": {\"cause\": 0}}}",
     {":1: scenario.default.cause: expected an integer from 1 to 65535, found the number 0; using "
      "2 "
      "instead"}},
    {"DetailTooLarge",
     "{\"scenario\": {\"default\": {\"detail\": 65536}}}",
     {":1: scenario.default.detail: expected an integer from 0 to 65535, found the number 65536; "
      "using 0 instead"}},
    {"DeviceEmpty",
     "{\"scenario\": {\"default\": {\"device\": \"\"}}}",
     {":1: scenario.default.device: expected the name of a network device, 1 to 15 bytes, found "
      "the "
      "text \"\"; using \"lo\" instead"}},
    {"AddressOfThreeParts",
     "{\"scenario\": {\"default\": {\"address\": \"10.1.2\"}}}",
     {":1: scenario.default.address: expected an IPv4 address like \"10.1.2.3\", found the text "
      "\"10.1.2\"; using \"127.0.0.1\" instead"}},
    {"AddressIsNoText",
     "{\"scenario\": {\"default\": {\"address\": 10}}}",
     {":1: scenario.default.address: expected an IPv4 address like \"10.1.2.3\", found the number "
      "10; using \"127.0.0.1\" instead"}},
    {"NameServerIsAName",
     "{\"scenario\": {\"default\": {\"nameServers\": [\"9.9.9.9\", \"dns.example\"]}}}",
     {":1: scenario.default.nameServers[1]: expected an IP address as text, found the text "
      "\"dns.example\"; using the other name servers instead"}},
    {"NoNameServerIsLeft",
     "{\"scenario\": {\"default\": {\"nameServers\": [\"dns.example\",\n 9]}}}",
     {":1: scenario.default.nameServers[0]: expected an IP address as text, found the text "
      "\"dns.example\"; using no name server instead",
      ":2: scenario.default.nameServers[1]: expected an IP address as text, found the number 9; "
      "using no name server instead"}},
    {"NameServersIsNoList",
     "{\"scenario\": {\"default\": {\"nameServers\": \"9.9.9.9\"}}}",
     {":1: scenario.default.nameServers: expected an array, found the text \"9.9.9.9\"; using an "
      "empty one instead"}},
    {"SeveralInTheirOrder",
     "{\n\"minuteMs\": \"x\",\n\"bearer\": 1,\n\"more\": 2}",
     {":2: minuteMs: expected an integer from 1 to 60000, found the text \"x\"; using 60000 "
      "instead",
      ":3: bearer: expected one of the texts \"machine\", \"scenario\", \"networkmanager\", found "
      "the number 1; using "
      "\"machine\" instead",
      std::string(":4: more: expected one of the keys ") + keys +
          ", found an unknown key; using the file without it instead"}},
};

class NetworkConfigProblem : public NetworkConfig, public testing::WithParamInterface<Row>
{};

TEST_P(NetworkConfigProblem, IsToldOnceWithItsLine)
{
    store("Home", wifiProfile());
    configure(GetParam().json);
    std::string expected;
    for (const std::string& line : GetParam().lines)
        expected += path() + line + "\n";
    EXPECT_EQ(told([] { Receiver receiver; }), expected);
    EXPECT_EQ(told([] {
                  Receiver receiver;
                  NAPI_OpenLink("Home");
              }),
              "")
        << "the file is the same as before";
}

TEST_P(NetworkConfigProblem, IsFoundByTheInspection)
{
    configure(GetParam().json);
    std::vector<napihost::Finding> findings = napihost::inspectNetworkConfiguration();
    ASSERT_EQ(findings.size(), GetParam().lines.size());
    for (std::size_t i = 0; i < findings.size(); ++i) {
        EXPECT_EQ(findings[i].path + ": " + findings[i].problem, path() + GetParam().lines[i]);
        EXPECT_EQ(findings[i].remedy,
                  "correct the file; network-json.md in the documentation describes it");
    }
}

INSTANTIATE_TEST_SUITE_P(All, NetworkConfigProblem, testing::ValuesIn(rows),
                         [](const auto& row) { return row.param.name; });

struct BrokenRow
{
    const char* name;
    std::string json;
    int line;
};
void PrintTo(const BrokenRow& row, std::ostream* stream)
{
    *stream << row.name;
}
const BrokenRow brokenRows[] = {
    {"Empty", "", 1},
    {"TrailingComma", "{\n\"bearer\": \"scenario\",\n}", 3},
    {"NotClosed", "{\n\"bearer\": \"scenario\"", 2},
    {"TwoValues", "{\"bearer\": \"scenario\"}\n\n{}", 3},
    {"NoUtf8", "{\n\"bearer\": \"\xC3\x28\"}", 2},
    {"Binary", std::string("\0\1\2", 3), 1},
};
class NetworkConfigBroken : public NetworkConfig, public testing::WithParamInterface<BrokenRow>
{};

TEST_P(NetworkConfigBroken, IsToldWithTheLineAndNotUsed)
{
    store("Home", dialledProfile());
    configure(GetParam().json);
    std::string said = told([] {
        Receiver receiver;
        NAPI_OpenLink("Home");
        EXPECT_EQ(receiver.next(), failed(0, 14, 0)) << "the machine's answer to a dialled call";
    });
    std::string place = path() + ":" + std::to_string(GetParam().line) + ": ";
    EXPECT_EQ(said.substr(0, place.size()), place) << said;
    EXPECT_NE(said.find("; using the defaults instead\n"), std::string::npos) << said;
    EXPECT_EQ(napihost::inspectNetworkConfiguration().size(), 1u);
}

INSTANTIATE_TEST_SUITE_P(All, NetworkConfigBroken, testing::ValuesIn(brokenRows),
                         [](const auto& row) { return row.param.name; });

TEST_F(NetworkConfig, LimitsTheNumberOfProfiles)
{
    EXPECT_EQ(NAPI_GetMaxProfiles(), 1024u);
    configure(R"({"maxProfiles": 2})");
    EXPECT_EQ(NAPI_GetMaxProfiles(), 2u);
    store("First");
    store("Second");
    NetworkProfile third = packetProfile();
    EXPECT_EQ(NAPI_CreateProfile("Third", &third, 0, 0), -152);
    configure(R"({"maxProfiles": 3})");
    EXPECT_EQ(NAPI_CreateProfile("Third", &third, 0, 0), 0);
}

TEST_F(NetworkConfig, UsesTheOtherKeysOfAFileWithOneMistake)
{
    configure(R"({"bearer": "scenario", "scenario": {"default":
        {"outcome": "fail", "cause": 3, "detail": 99999}}})");
    store("Home");
    Receiver receiver;
    NAPI_OpenLink("Home");
    EXPECT_EQ(receiver.next(), failed(0, 3, 0));
}

TEST_F(NetworkConfig, WithoutAFileIsTheMachine)
{
    store("Home", dialledProfile());
    EXPECT_EQ(told([] {
                  Receiver receiver;
                  NAPI_OpenLink("Home");
                  EXPECT_EQ(receiver.next(), failed(0, 14, 0));
              }),
              "");
    EXPECT_TRUE(napihost::inspectNetworkConfiguration().empty());
}

TEST_F(NetworkConfig, IsNotMissedWhereTheRootIsAFile)
{
    writeFile(root() + "/file", "");
    setenv("VORN_ROOT", (root() + "/file").c_str(), 1);
    EXPECT_EQ(told([] {
                  Receiver receiver;
                  EXPECT_EQ(NAPI_OpenLink("Home"), NAPI_ERR_ROOT);
              }),
              "");
}

TEST_F(NetworkConfig, TellsOfEachChangeAgain)
{
    store("Home");
    Receiver receiver;
    configure(R"({"bearer": 1})");
    EXPECT_NE(told([] { NAPI_OpenLink("Home"); }), "");
    EXPECT_EQ(told([] { NAPI_OpenLink("Home"); }), "");
    configure(R"({"bearer": 2})");
    EXPECT_NE(told([] { NAPI_OpenLink("Home"); }).find("found the number 2"), std::string::npos);
}

TEST_F(NetworkConfig, ThatIsAFolderIsToldOnce)
{
    fs::create_directory(path());
    EXPECT_EQ(told([] { Receiver receiver; }),
              path() + ": expected a readable file, found a folder; using the defaults instead\n");
    EXPECT_EQ(told([] { Receiver receiver; }), "");
    ASSERT_EQ(napihost::inspectNetworkConfiguration().size(), 1u);
    EXPECT_EQ(napihost::inspectNetworkConfiguration()[0].remedy,
              "put a file in its place that its owner may read, or remove it");
}

TEST_F(NetworkConfig, ThatIsAPipeHoldsNobodyUp)
{
    ASSERT_EQ(mkfifo(path().c_str(), 0600), 0);
    EXPECT_EQ(told([] { Receiver receiver; }),
              path() + ": expected a readable file, found something that is no regular file; using "
                       "the defaults instead\n");
}

TEST_F(NetworkConfig, IsReadFromTheRootOfTheMoment)
{
    configure(
        R"({"bearer": "scenario", "scenario": {"default": {"outcome": "fail", "cause": 16}}})");
    store("Home");
    fs::create_directory(root() + "/other");
    fs::copy(root() + "/vornlocal", root() + "/other/vornlocal", fs::copy_options::recursive);
    NetworkProfile dialled = dialledProfile();
    Receiver receiver;
    NAPI_OpenLink("Home");
    EXPECT_EQ(receiver.next(), failed(0, 16, 0));
    setenv("VORN_ROOT", (root() + "/other").c_str(), 1);
    EXPECT_EQ(NAPI_ModifyProfile("Home", &dialled, 0, 0), 0);
    NAPI_OpenLink("Home");
    EXPECT_EQ(receiver.next(), failed(0, 14, 0));
    setenv("VORN_ROOT", root().c_str(), 1);
}

} // namespace
