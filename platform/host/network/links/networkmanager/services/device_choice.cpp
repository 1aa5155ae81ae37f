#include "network/links/networkmanager/services/device_choice.h"

#include <cerrno>

#include "network/links/networkmanager/services/service_names.h"

namespace network {

using Way = DeviceChoice::Way;

namespace {

DeviceChoice refusal(const ServiceDevice& device, Cause cause)
{
    return {Way::None, cause, device};
}

// What the user has switched off stays off.
Cause switchedOff()
{
    return causeOfErrno(NAPI_CAUSE_NO_SERVICE, ERFKILL);
}

Cause equipment(int code)
{
    return {NAPI_CAUSE_SIM, NAPI_DETAIL_EQUIPMENT + code};
}

// MMModemStateFailedReason: 2 no SIM, 3 SIM error.
Cause causeOfFailedModem(uint32_t reason)
{
    if (reason == 2)
        return equipment(10);
    return reason == 3 ? equipment(13) : Cause{NAPI_CAUSE_MODEM, 0};
}

// What the modem itself has against dialling; no cause when nothing. A PIN may still be given by
// somebody while the service asks for it, any other lock is beyond that.
Cause causeOfModem(const ServiceModem& modem)
{
    constexpr int64_t failed = -1, locked = 2;
    constexpr uint32_t puk = 4;
    if (modem.state == failed)
        return causeOfFailedModem(modem.failedReason);
    if (modem.state == locked && modem.lock != mm::LockPin)
        return equipment(modem.lock == puk ? 12 : 13);
    if (modem.power == mm::PowerOff || modem.power == mm::PowerLow)
        return switchedOff();
    return {NAPI_CAUSE_NONE, 0};
}

Cause causeOfUnavailable(const ServiceDevice& device)
{
    Cause told = causeOfReason(device.reason);
    if (told.cause != NAPI_CAUSE_UNKNOWN)
        return told;
    told.cause = NAPI_CAUSE_NO_CARRIER;
    if (device.type == nm::Modem)
        told.cause = NAPI_CAUSE_MODEM;
    else if (device.type == nm::Wifi)
        told.cause = NAPI_CAUSE_NO_SERVICE;
    return told;
}

Way wayToFreeDevice(NapiBearerKind kind, const ServiceDevice& device)
{
    if (kind == NAPI_BEARER_GPRS || (device.type != nm::Wifi && !device.known))
        return Way::Dial;
    return device.known ? Way::Known : Way::None;
}

bool radioOff(const ServiceDevice& device, const ServicePicture& picture)
{
    return !picture.networking || (device.type == nm::Modem && !picture.wwan) ||
           (device.type == nm::Wifi && !picture.wifi);
}

} // namespace

DeviceChoice judgeDevice(NapiBearerKind kind, const ServiceDevice& device,
                         const ServicePicture& picture)
{
    if (radioOff(device, picture))
        return refusal(device, switchedOff());
    const ServiceModem* modem = picture.findModem(device.modem);
    Cause ofModem = modem ? causeOfModem(*modem) : Cause{NAPI_CAUSE_NONE, 0};
    if (ofModem.cause != NAPI_CAUSE_NONE)
        return refusal(device, ofModem);
    if (!device.managed || device.state <= nm::Unmanaged)
        return refusal(device, {NAPI_CAUSE_NO_BEARER, causeOfReason(device.reason).detail});
    if (device.state == nm::Unavailable)
        return refusal(device, causeOfUnavailable(device));
    bool taken = device.state >= nm::Prepare && device.state <= nm::Activated;
    Way way = taken ? Way::Join : wayToFreeDevice(kind, device);
    return {way, {NAPI_CAUSE_NO_SERVICE, 0}, device};
}

namespace {

// Without a name in the configuration the type decides.
bool serves(NapiBearerKind kind, const std::optional<std::string>& named,
            const ServiceDevice& device)
{
    bool cellular = kind == NAPI_BEARER_GPRS;
    bool wired = device.type == nm::Ethernet || device.type == nm::Veth;
    if (!named)
        return device.type == (cellular ? nm::Modem : nm::Wifi);
    bool typeFits = cellular ? device.type == nm::Modem : device.type == nm::Wifi || wired;
    return typeFits && (device.interface == *named || device.ipInterface == *named);
}

// Asked for a call that it may not make, the service would only say that it has failed.
bool mayNotRoam(const NetworkConfig& config, const ServiceModem* modem)
{
    return modem && !config.roaming && isAbroad(*modem);
}

int rank(Way way)
{
    switch (way) {
    case Way::None:
        return 0;
    case Way::Join:
        return 1;
    case Way::Dial:
    case Way::Known:
        break;
    }
    return 2;
}

} // namespace

DeviceChoice chooseDevice(NapiBearerKind kind, const NetworkConfig& config,
                          const ServicePicture& picture)
{
    const auto& named = kind == NAPI_BEARER_WIFI ? config.wifi : config.cellular;
    DeviceChoice best;
    if (named && named->empty())
        return best;
    best.cause = causeOfErrno(named ? NAPI_CAUSE_DEVICE_GONE : NAPI_CAUSE_NO_BEARER, ENODEV);
    bool found = false;
    for (const ServiceDevice& device : picture.devices) {
        if (!serves(kind, named, device))
            continue;
        DeviceChoice choice = judgeDevice(kind, device, picture);
        if (choice.way == Way::Dial && mayNotRoam(config, picture.findModem(device.modem)))
            choice = refusal(device, switchedOff());
        if (!found || rank(choice.way) > rank(best.way))
            best = choice;
        found = true;
    }
    return best;
}

} // namespace network
