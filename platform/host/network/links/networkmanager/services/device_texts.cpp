#include "network/links/networkmanager/services/device_texts.h"

#include <cerrno>

#include "network/links/networkmanager/services/service_names.h"

namespace network {

namespace {

struct Text
{
    uint32_t number;
    const char* text;
};

constexpr Text states[] = {
    {10, "unmanaged"},   {20, "unavailable"},  {30, "disconnected"},   {40, "preparing"},
    {50, "configuring"}, {60, "needs-secret"}, {70, "addressing"},     {80, "checking"},
    {90, "checking"},    {100, "connected"},   {110, "disconnecting"}, {120, "failed"},
};

// The bits of MMModemAccessTechnology, the best first.
constexpr Text technologyTexts[] = {
    {1 << 15, "5g"},   {1 << 14, "lte"},  {1 << 9, "hspa+"}, {1 << 8, "hspa"},
    {1 << 7, "hsupa"}, {1 << 6, "hsdpa"}, {1 << 5, "umts"},  {1 << 4, "edge"},
    {1 << 3, "gprs"},  {1 << 2, "gsm"},   {1 << 1, "gsm"},
};

constexpr Text registrations[] = {
    {0, "idle"}, {1, "home"}, {2, "searching"}, {3, "denied"}, {4, "unknown"}, {5, "roaming"},
};

struct CauseHint
{
    NapiCause cause;
    int detail; // or any, where it is anyDetail
    Hint hint;
};

constexpr int anyDetail = -1;

constexpr CauseHint hints[] = {
    {NAPI_CAUSE_NO_SERVICE,
     NAPI_DETAIL_ERRNO + ERFKILL,
     {"it is switched off", "nmcli networking on; nmcli radio all on; mmcli --modem any "
                            "--set-power-state-on"}},
    {NAPI_CAUSE_NO_SERVICE,
     anyDetail,
     {"no network that is known is in reach", "nmcli --ask device wifi connect NAME"}},
    {NAPI_CAUSE_SIM, NAPI_DETAIL_EQUIPMENT + 10, {"there is no SIM card", "put one in"}},
    {NAPI_CAUSE_SIM,
     NAPI_DETAIL_EQUIPMENT + 12,
     {"the SIM card asks for its PUK", "mmcli --sim any --puk NUMBER --pin NUMBER"}},
    {NAPI_CAUSE_SIM,
     anyDetail,
     {"the SIM card does not work", "take it out and put it in again, or try another one"}},
    {NAPI_CAUSE_NO_BEARER,
     anyDetail,
     {"NetworkManager does not manage it", "nmcli device set NAME managed yes"}},
    {NAPI_CAUSE_NO_CARRIER, anyDetail, {"it has no carrier", "plug its cable in"}},
    {NAPI_CAUSE_MODEM,
     anyDetail,
     {"the modem is not ready", "wait half a minute, then sudo systemctl restart ModemManager"}},
};

struct BusHint
{
    int error; // errno of the bus
    Hint hint;
};

// Where the bus does not answer, NetworkManager may run all the same.
constexpr Hint silentBus = {"the machine's bus does not answer", "sudo systemctl status dbus"};

constexpr BusHint busHints[] = {
    {ELIBACC, {"the library of the machine's bus is missing", "sudo apt install libsystemd0"}},
    {ENOENT,
     {"the machine's bus is not there", "sudo apt install dbus; sudo systemctl start dbus; or "
                                        "unset DBUS_SYSTEM_BUS_ADDRESS, where it "
                                        "names another bus"}},
    {ECONNREFUSED, {"the machine's bus does not run", "sudo systemctl start dbus"}},
    {ETIMEDOUT, {"NetworkManager does not answer", "sudo systemctl restart NetworkManager"}},
};

template <typename Table> const char* find(const Table& table, uint32_t number)
{
    for (const Text& one : table) {
        if (one.number == number)
            return one.text;
    }
    return "unknown";
}

} // namespace

const char* deviceStateText(uint32_t state)
{
    return find(states, state);
}

const char* technologyText(uint32_t technologies)
{
    for (const Text& one : technologyTexts) {
        if (technologies & one.number)
            return one.text;
    }
    return "";
}

const char* registrationText(uint32_t state)
{
    return find(registrations, state);
}

const char* simText(const ServiceModem& modem)
{
    constexpr int64_t failed = -1, locked = 2;
    constexpr uint32_t simMissing = 2, puk = 4;
    if (modem.state == failed && modem.failedReason == simMissing)
        return "missing";
    if (modem.state != locked)
        return "ready";
    if (modem.lock == mm::LockPin)
        return "pin";
    return modem.lock == puk ? "puk" : "locked";
}

Hint hintFor(const Cause& cause)
{
    for (const CauseHint& one : hints) {
        bool fits = one.detail == anyDetail || one.detail == cause.detail;
        if (one.cause == cause.cause && fits)
            return one.hint;
    }
    return {"NetworkManager cannot use it", "nmcli device show"};
}

Hint hintForBus(int error)
{
    for (const BusHint& one : busHints) {
        if (one.error == error)
            return one.hint;
    }
    return silentBus;
}

Hint hintForService(const Cause& cause)
{
    if (cause.cause == NAPI_CAUSE_NOT_PERMITTED)
        return {"the machine's bus does not let this user ask NetworkManager",
                "log in at the device itself, or ask its administrator"};
    return {"NetworkManager does not run", "sudo apt install network-manager; sudo systemctl "
                                           "enable --now NetworkManager"};
}

Hint hintForRoaming()
{
    return {"the modem is abroad, and \"roaming\" is false",
            "set \"roaming\" to true in etc/network.json, where that may cost what it costs"};
}

Hint hintForSim(const ServiceModem& modem)
{
    if (modem.lock == mm::LockPin)
        return {"the SIM card asks for its PIN", "mmcli --sim any --pin NUMBER"};
    return hintFor({NAPI_CAUSE_SIM, NAPI_DETAIL_EQUIPMENT + 12});
}

} // namespace network
