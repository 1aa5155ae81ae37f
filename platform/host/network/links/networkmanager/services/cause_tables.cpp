#include "network/links/networkmanager/services/cause_tables.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <iterator>

#include "network/links/networkmanager/services/service_names.h"

namespace network {

namespace {

struct ReasonRange
{
    uint32_t first;
    uint32_t last;
    NapiCause cause;
};

// The reasons of NMDeviceStateReason; those that are missing say nothing about the cause.
constexpr ReasonRange reasons[] = {
    {3, 3, NAPI_CAUSE_DEVICE_GONE},         // taken out of the service's hands
    {5, 6, NAPI_CAUSE_NO_ADDRESS},          // no address in time, or it has expired
    {7, 7, NAPI_CAUSE_AUTHENTICATION},      // a password is missing
    {8, 11, NAPI_CAUSE_WIFI},               // the WiFi supplicant
    {12, 14, NAPI_CAUSE_MODEM},             // PPP
    {15, 17, NAPI_CAUSE_NO_ADDRESS},        // DHCP
    {20, 22, NAPI_CAUSE_NO_ADDRESS},        // link-local addressing
    {23, 23, NAPI_CAUSE_BUSY},              // line busy
    {24, 28, NAPI_CAUSE_MODEM},             // dial tone, carrier, dialling, initialisation
    {29, 29, NAPI_CAUSE_SUBSCRIPTION},      // access point refused
    {30, 33, NAPI_CAUSE_NO_SERVICE},        // registration
    {34, 34, NAPI_CAUSE_SIM},               // PIN check
    {35, 35, NAPI_CAUSE_NOT_SUPPORTED},     // firmware missing
    {36, 36, NAPI_CAUSE_DEVICE_GONE},       // device removed
    {37, 37, NAPI_CAUSE_NO_SERVICE},        // the machine sleeps, or everything is switched off
    {39, 39, NAPI_CAUSE_CANCELLED},         // somebody has disconnected it
    {40, 40, NAPI_CAUSE_NO_CARRIER},        // carrier
    {43, 43, NAPI_CAUSE_DEVICE_GONE},       // modem not found
    {45, 48, NAPI_CAUSE_SIM},               // no SIM, PIN or PUK needed, wrong SIM
    {52, 52, NAPI_CAUSE_NO_SERVICE_DAEMON}, // ModemManager does not run
    {53, 53, NAPI_CAUSE_WIFI},              // the WiFi network is not there
    {57, 57, NAPI_CAUSE_MODEM},             // the modem has failed
    {59, 59, NAPI_CAUSE_SIM},               // wrong PIN
    {60, 60, NAPI_CAUSE_CANCELLED},         // somebody has activated something else
    {64, 65, NAPI_CAUSE_NO_ADDRESS},        // address taken, method unsupported
};

struct NamedCause
{
    const char* name;
    NapiCause cause;
    int error; // errno that says the same, or 0
};

// Errors of calls, by the last part of their names.
constexpr NamedCause callErrors[] = {
    {"ServiceUnknown", NAPI_CAUSE_NO_SERVICE_DAEMON, 0},
    {"NameHasNoOwner", NAPI_CAUSE_NO_SERVICE_DAEMON, 0},
    {"NoReply", NAPI_CAUSE_NO_SERVICE_DAEMON, 0},
    {"Disconnected", NAPI_CAUSE_NO_SERVICE_DAEMON, 0},
    {"Timeout", NAPI_CAUSE_TIMEOUT, 0},
    {"PermissionDenied", NAPI_CAUSE_NOT_PERMITTED, 0},
    {"AccessDenied", NAPI_CAUSE_NOT_PERMITTED, 0},
    {"Unauthorized", NAPI_CAUSE_NOT_PERMITTED, 0},
    {"UnknownConnection", NAPI_CAUSE_NO_CARRIER, 0},
    {"ConnectionNotAvailable", NAPI_CAUSE_NO_CARRIER, 0},
    {"UnknownDevice", NAPI_CAUSE_DEVICE_GONE, ENODEV},
    {"UnknownObject", NAPI_CAUSE_DEVICE_GONE, ENODEV},
    {"InvalidProperty", NAPI_CAUSE_SUBSCRIPTION, EINVAL},
    {"InvalidConnection", NAPI_CAUSE_SUBSCRIPTION, EINVAL},
    {"InvalidSetting", NAPI_CAUSE_SUBSCRIPTION, EINVAL},
    {"LimitsExceeded", NAPI_CAUSE_UNKNOWN, EDQUOT},
    {"NoMemory", NAPI_CAUSE_UNKNOWN, ENOMEM},
};

// Other errors of ModemManager than those of the modem.
constexpr NamedCause modemServiceErrors[] = {
    {"Core.Cancelled", NAPI_CAUSE_CANCELLED, 0},
    {"Core.Aborted", NAPI_CAUSE_CANCELLED, 0},
    {"Core.Unauthorized", NAPI_CAUSE_NOT_PERMITTED, 0},
    {"Core.InProgress", NAPI_CAUSE_BUSY, 0},
    {"Core.Unsupported", NAPI_CAUSE_NOT_SUPPORTED, 0},
    {"Core.WrongSimState", NAPI_CAUSE_SIM, 0},
    {"Connection.NoCarrier", NAPI_CAUSE_MODEM, 0},
    {"Connection.NoDialtone", NAPI_CAUSE_MODEM, 0},
    {"Connection.Busy", NAPI_CAUSE_MODEM, 0},
    {"Connection.NoAnswer", NAPI_CAUSE_MODEM, 0},
    {"Serial.ResponseTimeout", NAPI_CAUSE_MODEM, ETIMEDOUT},
    {"Serial.OpenFailed", NAPI_CAUSE_MODEM, EIO},
    {"Serial.SendFailed", NAPI_CAUSE_MODEM, EIO},
    {"Serial.OpenFailedNoDevice", NAPI_CAUSE_DEVICE_GONE, ENODEV},
    {"Serial.NotOpen", NAPI_CAUSE_MODEM, EIO},
};

struct EquipmentError
{
    const char* name;
    int code; // of +CME ERROR (3GPP TS 27.007, clause 9.2)
    NapiCause cause;
};

constexpr EquipmentError equipmentErrors[] = {
    {"PhSimPin", 5, NAPI_CAUSE_SIM},
    {"PhFsimPin", 6, NAPI_CAUSE_SIM},
    {"PhFsimPuk", 7, NAPI_CAUSE_SIM},
    {"SimNotInserted", 10, NAPI_CAUSE_SIM},
    {"SimPin", 11, NAPI_CAUSE_SIM},
    {"SimPuk", 12, NAPI_CAUSE_SIM},
    {"SimFailure", 13, NAPI_CAUSE_SIM},
    {"SimBusy", 14, NAPI_CAUSE_SIM},
    {"SimWrong", 15, NAPI_CAUSE_SIM},
    {"IncorrectPassword", 16, NAPI_CAUSE_SIM},
    {"SimPin2", 17, NAPI_CAUSE_SIM},
    {"SimPuk2", 18, NAPI_CAUSE_SIM},
    {"NoNetwork", 30, NAPI_CAUSE_NO_SERVICE},
    {"NetworkTimeout", 31, NAPI_CAUSE_NO_SERVICE},
    {"NetworkNotAllowed", 32, NAPI_CAUSE_NO_SERVICE},
    {"NetworkPin", 40, NAPI_CAUSE_SIM},
    {"NetworkPuk", 41, NAPI_CAUSE_SIM},
    {"IllegalUe", 103, NAPI_CAUSE_SIM},
    {"PsServicesNotAllowed", 107, NAPI_CAUSE_SUBSCRIPTION},
    {"PlmnNotAllowed", 111, NAPI_CAUSE_NO_SERVICE},
    {"AreaNotAllowed", 112, NAPI_CAUSE_NO_SERVICE},
    {"RoamingNotAllowedInArea", 113, NAPI_CAUSE_NO_SERVICE},
    {"PsServicesNotAllowedInPlmn", 114, NAPI_CAUSE_NO_SERVICE},
    {"InsufficientResources", 126, NAPI_CAUSE_MODEM},
    {"MissingOrUnknownApn", 127, NAPI_CAUSE_SUBSCRIPTION},
    {"UserAuthenticationFailed", 129, NAPI_CAUSE_AUTHENTICATION},
    {"ServiceOptionNotSupported", 132, NAPI_CAUSE_SUBSCRIPTION},
    {"ServiceOptionNotSubscribed", 133, NAPI_CAUSE_SUBSCRIPTION},
    {"ServiceOptionOutOfOrder", 134, NAPI_CAUSE_MODEM},
    {"PdpAuthFailure", 149, NAPI_CAUSE_AUTHENTICATION},
    {"OperatorDeterminedBarring", 177, NAPI_CAUSE_SUBSCRIPTION},
    {"RequestedApnNotSupported", 179, NAPI_CAUSE_SUBSCRIPTION},
};

template <typename Table> const auto* find(const Table& table, const char* name)
{
    auto found = std::find_if(std::begin(table), std::end(table),
                              [&](const auto& one) { return std::strcmp(one.name, name) == 0; });
    return found == std::end(table) ? nullptr : &*found;
}

} // namespace

Cause causeOfErrno(NapiCause cause, int error)
{
    return {cause, error == 0 ? 0 : NAPI_DETAIL_ERRNO + error};
}

Cause causeOfSending(NapiCause cause, int error)
{
    constexpr int gone[] = {ENOTCONN, ECONNRESET, EPIPE, ESHUTDOWN};
    bool noBus = std::find(std::begin(gone), std::end(gone), error) != std::end(gone);
    return causeOfErrno(noBus ? NAPI_CAUSE_NO_SERVICE_DAEMON : cause, error);
}

Cause causeOfReason(uint32_t reason)
{
    Cause cause;
    for (const ReasonRange& range : reasons) {
        if (reason >= range.first && reason <= range.last)
            cause.cause = range.cause;
    }
    constexpr uint32_t largest = 0xFF;
    cause.detail = NAPI_DETAIL_REASON + static_cast<int>(std::min(reason, largest));
    return cause;
}

Cause causeOfCallError(const std::string& name)
{
    std::string last = name.substr(name.rfind('.') + 1);
    const NamedCause* known = find(callErrors, last.c_str());
    return known ? causeOfErrno(known->cause, known->error) : Cause();
}

Cause causeOfModemError(const std::string& name)
{
    constexpr std::size_t prefix = sizeof mm::errors - 1;
    if (name.compare(0, prefix, mm::errors) != 0)
        return {};
    std::string kind = name.substr(prefix);
    if (const NamedCause* known = find(modemServiceErrors, kind.c_str()))
        return causeOfErrno(known->cause, known->error);
    std::string last = kind.substr(kind.rfind('.') + 1);
    if (const EquipmentError* known = find(equipmentErrors, last.c_str()))
        return {known->cause, NAPI_DETAIL_EQUIPMENT + known->code};
    return {};
}

} // namespace network
