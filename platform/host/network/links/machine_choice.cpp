#include "network/links/machine_choice.h"

#include <cerrno>

#include <net/if.h>

namespace network {

namespace {

bool wantsWifi(uint32_t preference)
{
    return preference == NAPI_PREFER_WIFI_ONLY || preference == NAPI_PREFER_WIFI_THEN_CELLULAR;
}

} // namespace

std::vector<NapiBearerKind> allowedKinds(const NetworkProfile& record)
{
    uint32_t preference = record.flags & NAPI_PREFER_MASK;
    std::vector<NapiBearerKind> kinds;
    if (wantsWifi(preference))
        kinds.push_back(NAPI_BEARER_WIFI);
    if (preference == NAPI_PREFER_WIFI_ONLY)
        return kinds;
    if (record.gprsApn[0] != '\0')
        kinds.push_back(NAPI_BEARER_GPRS);
    else if (record.csdNumber[0] != '\0')
        kinds.push_back(NAPI_BEARER_CSD);
    return kinds;
}

namespace {

MachineChoice refusal(NapiCause cause, int error)
{
    MachineChoice choice;
    choice.cause = cause;
    choice.detail = error == 0 ? 0 : NAPI_DETAIL_ERRNO + error;
    return choice;
}

const Interface* usualInterface(const Interfaces& interfaces)
{
    const Interface* routed = interfaces.find(defaultRouteInterface());
    return routed ? routed : interfaces.loopback();
}

MachineChoice judge(const Interface* interface, NapiCause whenMissing, NapiBearerKind kind)
{
    if (!interface)
        return refusal(whenMissing, ENODEV);
    if (!(interface->flags & IFF_UP))
        return refusal(NAPI_CAUSE_NO_ADDRESS, ENETDOWN);
    if (interface->addresses.empty())
        return refusal(NAPI_CAUSE_NO_ADDRESS, EADDRNOTAVAIL);
    MachineChoice choice;
    choice.device.name = interface->name;
    choice.device.address = interface->addresses.front();
    choice.device.kind = kind;
    return choice;
}

MachineChoice chooseForKind(NapiBearerKind kind, const NetworkConfig& config,
                            const Interfaces& interfaces)
{
    if (kind == NAPI_BEARER_CSD)
        return refusal(NAPI_CAUSE_NOT_SUPPORTED, 0);
    const auto& named = kind == NAPI_BEARER_WIFI ? config.wifi : config.cellular;
    if (!named)
        return judge(usualInterface(interfaces), NAPI_CAUSE_NO_BEARER, kind);
    if (named->empty())
        return refusal(NAPI_CAUSE_NO_BEARER, 0);
    return judge(interfaces.find(*named), NAPI_CAUSE_DEVICE_GONE, kind);
}

} // namespace

MachineChoice chooseInterface(const NetworkProfile& record, const NetworkConfig& config,
                              const Interfaces& interfaces)
{
    MachineChoice choice = refusal(NAPI_CAUSE_NO_BEARER, 0);
    for (NapiBearerKind kind : allowedKinds(record)) {
        choice = chooseForKind(kind, config, interfaces);
        if (choice.cause == NAPI_CAUSE_NONE)
            break;
    }
    return choice;
}

} // namespace network
