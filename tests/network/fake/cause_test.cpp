// Which cause an opening fails with, for each word that the services have for it.
#include <algorithm>
#include <set>

#include "network/fake/fake_test.h"

using namespace linktest;
using namespace fakebus;

namespace {

class CauseOfNetworkManager : public FakeTest
{};

// Reasons of a device by NetworkManager's numbers, and the causes that programs are told. A reason
// that is not here is unknown to us too.
const std::map<uint32_t, int> causeOfReason = {
    {3, 9},  {5, 6},  {6, 6},   {7, 5},   {8, 15},  {9, 15},  {10, 15}, {11, 15}, {12, 7},
    {13, 7}, {14, 7}, {15, 6},  {16, 6},  {17, 6},  {20, 6},  {21, 6},  {22, 6},  {23, 16},
    {24, 7}, {25, 7}, {26, 7},  {27, 7},  {28, 7},  {29, 4},  {30, 2},  {31, 2},  {32, 2},
    {33, 2}, {34, 3}, {35, 14}, {36, 9},  {37, 2},  {39, 13}, {40, 8},  {43, 9},  {45, 3},
    {46, 3}, {47, 3}, {48, 3},  {52, 10}, {53, 15}, {57, 7},  {59, 3},  {64, 6},  {65, 6}};

TEST_F(CauseOfNetworkManager, FollowsTheReasonOfTheDevice)
{
    Receiver receiver;
    // All that exist, the next ones that may come, and what never will.
    std::set<uint32_t> reasons = {1000, 65535, 65536, 4294967295u};
    for (uint32_t reason = 0; reason < 72; ++reason)
        reasons.insert(reason);
    reasons.erase(60); // an activation in its place: RepeatedReplacement
    for (uint32_t reason : reasons) {
        SCOPED_TRACE("reason " + std::to_string(reason));
        nm->onActivate = [&] { nm->fail(reason); };
        int link = NAPI_OpenLink("Home");
        auto known = causeOfReason.find(reason);
        Message message = next(receiver);
        EXPECT_EQ(message.type, NAPI_IND_OPEN_FAILED);
        EXPECT_EQ(message.link, link);
        EXPECT_EQ(message.cause, known == causeOfReason.end() ? 65535 : known->second);
        // The detail has room for one byte of it; no reason at all is an unknown one.
        EXPECT_EQ(message.detail, 0x100 + int(std::clamp(reason, 1u, 255u)));
    }
}

// Somebody else has activated something on the device: it may serve this link, too, but not without
// end.
TEST_F(CauseOfNetworkManager, IsCancelledWhenTheActivationIsReplacedAgainAndAgain)
{
    nm->onActivate = [this] { nm->fail(60); };
    Receiver receiver;
    NAPI_OpenLink("Home");
    EXPECT_EQ(next(receiver), failed(0, 13, 0x100 + 60));
    EXPECT_LT(nm->service.countOf("AddAndActivateConnection2"), 10u);
}

struct ModemRow
{
    const char* error; // behind "org.freedesktop.ModemManager1.Error."
    int cause;
    int detail; // the modem's own code (3GPP TS 27.007, clause 9.2), where it is one
};
const ModemRow modemRows[] = {
    {"MobileEquipment.SimNotInserted", 3, 10},
    {"MobileEquipment.SimPin", 3, 11},
    {"MobileEquipment.SimPuk", 3, 12},
    {"MobileEquipment.SimWrong", 3, 15},
    {"MobileEquipment.IncorrectPassword", 3, 16},
    {"MobileEquipment.NoNetwork", 2, 30},
    {"MobileEquipment.NetworkTimeout", 2, 31},
    {"MobileEquipment.NetworkNotAllowed", 2, 32},
    {"MobileEquipment.Unknown", 65535, 0x101},
    {"MobileEquipment.PsServicesNotAllowed", 4, 107},
    {"MobileEquipment.PlmnNotAllowed", 2, 111},
    {"MobileEquipment.AreaNotAllowed", 2, 112},
    {"MobileEquipment.RoamingNotAllowedInArea", 2, 113},
    {"MobileEquipment.PsServicesNotAllowedInPlmn", 2, 114},
    {"MobileEquipment.InsufficientResources", 7, 126},
    {"MobileEquipment.MissingOrUnknownApn", 4, 127},
    {"MobileEquipment.UserAuthenticationFailed", 5, 129},
    {"MobileEquipment.ServiceOptionNotSupported", 4, 132},
    {"MobileEquipment.ServiceOptionNotSubscribed", 4, 133},
    {"MobileEquipment.ServiceOptionOutOfOrder", 7, 134},
    {"MobileEquipment.PdpAuthFailure", 5, 149},
    {"MobileEquipment.OperatorDeterminedBarring", 4, 177},
    {"MobileEquipment.RequestedApnNotSupported", 4, 179},
};
class CauseOfModem : public FakeTest, public testing::WithParamInterface<ModemRow>
{};

TEST_P(CauseOfModem, IsTakenWhereNetworkManagerKnowsNone)
{
    nm->onActivate = [&] {
        mm->connectionError(GetParam().error);
        nm->fail(1);
    };
    Receiver receiver;
    NAPI_OpenLink("Home");
    EXPECT_EQ(next(receiver), failed(0, GetParam().cause, GetParam().detail));
}

TEST_P(CauseOfModem, IsWaitedForAMoment)
{
    nm->onActivate = [&] {
        nm->fail(1);
        mm->service.work();
        mm->connectionError(GetParam().error);
    };
    Receiver receiver;
    NAPI_OpenLink("Home");
    EXPECT_EQ(next(receiver), failed(0, GetParam().cause, GetParam().detail));
}
INSTANTIATE_TEST_SUITE_P(All, CauseOfModem, testing::ValuesIn(modemRows), [](const auto& row) {
    return std::string(row.param.error).substr(std::string("MobileEquipment.").size());
});

TEST_F(CauseOfNetworkManager, IsThatOfThisOpeningAndNotOfTheOneBefore)
{
    Receiver receiver;
    nm->onActivate = [&] {
        mm->connectionError("MobileEquipment.MissingOrUnknownApn");
        nm->fail(1);
    };
    NAPI_OpenLink("Home");
    EXPECT_EQ(next(receiver), failed(0, 4, 127));
    nm->onActivate = [&] {
        mm->connectionError("");
        nm->fail(1);
    };
    NAPI_OpenLink("Home");
    EXPECT_EQ(next(receiver), failed(0, 65535, 0x101));
}

struct RefusalRow
{
    const char* name;
    const char* error;
    int cause;
};
const RefusalRow refusalRows[] = {
    {"NotPermitted", "org.freedesktop.NetworkManager.PermissionDenied", 11},
    {"NotPermittedBySettings", "org.freedesktop.NetworkManager.Settings.PermissionDenied", 11},
    {"NotPermittedByTheBus", "org.freedesktop.DBus.Error.AccessDenied", 11},
    {"NoCarrier", "org.freedesktop.NetworkManager.UnknownConnection", 8},
    {"NotRunning", "org.freedesktop.DBus.Error.ServiceUnknown", 10},
    {"NoReply", "org.freedesktop.DBus.Error.NoReply", 10},
    {"SomethingElse", "org.example.Error.NeverHeardOf", 65535},
};
class CauseOfRefusal : public FakeTest, public testing::WithParamInterface<RefusalRow>
{};
TEST_P(CauseOfRefusal, FollowsTheError)
{
    nm->service.refuse("AddAndActivateConnection2", GetParam().error, "device has no carrier");
    Receiver receiver;
    NAPI_OpenLink("Home");
    Message message = next(receiver);
    EXPECT_EQ(message.type, NAPI_IND_OPEN_FAILED);
    EXPECT_EQ(message.cause, GetParam().cause);
}
INSTANTIATE_TEST_SUITE_P(All, CauseOfRefusal, testing::ValuesIn(refusalRows),
                         [](const auto& row) { return row.param.name; });

} // namespace
