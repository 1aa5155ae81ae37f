// Which causes programs are told for what the services say. Every number is written out here.
#include <cerrno>

#include <gtest/gtest.h>

#include "network/links/networkmanager/services/cause_tables.h"

namespace {

struct ReasonRow
{
    unsigned reason;
    int cause;
};

// The reasons of NMDeviceStateReason, one after the other.
const ReasonRow reasons[] = {
    {0, 65535},  {1, 65535},  {2, 65535},  {3, 9},      {4, 65535},  {5, 6},       {6, 6},
    {7, 5},      {8, 15},     {9, 15},     {10, 15},    {11, 15},    {12, 7},      {13, 7},
    {14, 7},     {15, 6},     {16, 6},     {17, 6},     {18, 65535}, {19, 65535},  {20, 6},
    {21, 6},     {22, 6},     {23, 16},    {24, 7},     {25, 7},     {26, 7},      {27, 7},
    {28, 7},     {29, 4},     {30, 2},     {31, 2},     {32, 2},     {33, 2},      {34, 3},
    {35, 14},    {36, 9},     {37, 2},     {38, 65535}, {39, 13},    {40, 8},      {41, 65535},
    {42, 65535}, {43, 9},     {44, 65535}, {45, 3},     {46, 3},     {47, 3},      {48, 3},
    {49, 65535}, {50, 65535}, {51, 65535}, {52, 10},    {53, 15},    {54, 65535},  {55, 65535},
    {56, 65535}, {57, 7},     {58, 65535}, {59, 3},     {60, 13},    {61, 65535},  {62, 65535},
    {63, 65535}, {64, 6},     {65, 6},     {66, 65535}, {67, 65535}, {200, 65535},
};

struct NameRow
{
    const char* name;
    int cause;
    int detail;
};

const NameRow modemErrors[] = {
    {"org.freedesktop.ModemManager1.Error.MobileEquipment.SimNotInserted", 3, 10},
    {"org.freedesktop.ModemManager1.Error.MobileEquipment.SimPin", 3, 11},
    {"org.freedesktop.ModemManager1.Error.MobileEquipment.SimPuk", 3, 12},
    {"org.freedesktop.ModemManager1.Error.MobileEquipment.SimWrong", 3, 15},
    {"org.freedesktop.ModemManager1.Error.MobileEquipment.IncorrectPassword", 3, 16},
    {"org.freedesktop.ModemManager1.Error.MobileEquipment.NoNetwork", 2, 30},
    {"org.freedesktop.ModemManager1.Error.MobileEquipment.NetworkNotAllowed", 2, 32},
    {"org.freedesktop.ModemManager1.Error.MobileEquipment.PsServicesNotAllowed", 4, 107},
    {"org.freedesktop.ModemManager1.Error.MobileEquipment.PlmnNotAllowed", 2, 111},
    {"org.freedesktop.ModemManager1.Error.MobileEquipment.InsufficientResources", 7, 126},
    {"org.freedesktop.ModemManager1.Error.MobileEquipment.MissingOrUnknownApn", 4, 127},
    {"org.freedesktop.ModemManager1.Error.MobileEquipment.UserAuthenticationFailed", 5, 129},
    {"org.freedesktop.ModemManager1.Error.MobileEquipment.ServiceOptionNotSupported", 4, 132},
    {"org.freedesktop.ModemManager1.Error.MobileEquipment.ServiceOptionNotSubscribed", 4, 133},
    {"org.freedesktop.ModemManager1.Error.MobileEquipment.ServiceOptionOutOfOrder", 7, 134},
    {"org.freedesktop.ModemManager1.Error.MobileEquipment.PdpAuthFailure", 5, 149},
    {"org.freedesktop.ModemManager1.Error.MobileEquipment.OperatorDeterminedBarring", 4, 177},
    {"org.freedesktop.ModemManager1.Error.MobileEquipment.RequestedApnNotSupported", 4, 179},
    {"org.freedesktop.ModemManager1.Error.MobileEquipment.Unknown", 65535, 0},
    {"org.freedesktop.ModemManager1.Error.Core.Cancelled", 13, 0},
    {"org.freedesktop.ModemManager1.Error.Core.Unauthorized", 11, 0},
    {"org.freedesktop.ModemManager1.Error.Core.InProgress", 16, 0},
    {"org.freedesktop.ModemManager1.Error.Core.Unsupported", 14, 0},
    {"org.freedesktop.ModemManager1.Error.Serial.ResponseTimeout", 7, 0x300 + 110},
    {"org.freedesktop.ModemManager1.Error.", 65535, 0},
    {"SimPin", 65535, 0},
    {"", 65535, 0},
};

const NameRow callErrors[] = {
    {"org.freedesktop.DBus.Error.ServiceUnknown", 10, 0},
    {"org.freedesktop.DBus.Error.NameHasNoOwner", 10, 0},
    {"org.freedesktop.DBus.Error.NoReply", 10, 0},
    {"org.freedesktop.DBus.Error.AccessDenied", 11, 0},
    {"org.freedesktop.NetworkManager.PermissionDenied", 11, 0},
    {"org.freedesktop.NetworkManager.Settings.PermissionDenied", 11, 0},
    {"org.freedesktop.NetworkManager.UnknownConnection", 8, 0},
    {"org.freedesktop.NetworkManager.UnknownDevice", 9, 0x300 + 19},
    {"org.freedesktop.NetworkManager.Settings.Connection.InvalidProperty", 4, 0x300 + 22},
    {"org.example.Whatever", 65535, 0},
    {"", 65535, 0},
};

TEST(CauseOfSending, IsTheBusThatHasGone)
{
    for (int error : {ENOTCONN, ECONNRESET, EPIPE, ESHUTDOWN}) {
        network::Cause cause = network::causeOfSending(NAPI_CAUSE_UNKNOWN, error);
        EXPECT_EQ(cause.cause, 10);
        EXPECT_EQ(cause.detail, 0x300 + error);
    }
}

TEST(CauseOfSending, IsTheOtherOneWhereTheCallItselfWasNoGood)
{
    network::Cause cause = network::causeOfSending(NAPI_CAUSE_AUTHENTICATION, EINVAL);
    EXPECT_EQ(cause.cause, 5);
    EXPECT_EQ(cause.detail, 0x300 + EINVAL);
}

} // namespace

TEST(CauseOfReason, IsToldWithTheReason)
{
    for (const ReasonRow& row : reasons) {
        network::Cause cause = network::causeOfReason(row.reason);
        EXPECT_EQ(cause.cause, row.cause) << "reason " << row.reason;
        EXPECT_EQ(cause.detail, 0x100 + static_cast<int>(row.reason));
    }
}

TEST(CauseOfReason, FitsTheDetailForAnAbsurdReason)
{
    EXPECT_EQ(network::causeOfReason(0xFFFFFFFF).cause, 65535);
    EXPECT_EQ(network::causeOfReason(0xFFFFFFFF).detail, 0x1FF);
}

TEST(CauseOfModemError, IsToldWithTheModemsCode)
{
    for (const NameRow& row : modemErrors) {
        network::Cause cause = network::causeOfModemError(row.name);
        EXPECT_EQ(cause.cause, row.cause) << row.name;
        EXPECT_EQ(cause.detail, row.detail) << row.name;
    }
}

TEST(CauseOfCallError, IsFoundByItsLastWord)
{
    for (const NameRow& row : callErrors) {
        network::Cause cause = network::causeOfCallError(row.name);
        EXPECT_EQ(cause.cause, row.cause) << row.name;
        EXPECT_EQ(cause.detail, row.detail) << row.name;
    }
}
