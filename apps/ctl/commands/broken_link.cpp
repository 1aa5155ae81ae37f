#include "commands/broken_link.h"

#include <cstring>
#include <memory>

#include <arpa/inet.h>
#include <ifaddrs.h>
#include <net/if.h>
#include <netinet/in.h>

namespace ctl {

namespace {

bool hasAddress(const std::string& device, uint32_t address)
{
    ifaddrs* list = nullptr;
    if (::getifaddrs(&list) != 0)
        return true; // not known to be lost
    const std::unique_ptr<ifaddrs, decltype(&::freeifaddrs)> owner(list, &::freeifaddrs);
    for (const ifaddrs* each = list; each; each = each->ifa_next) {
        if (!each->ifa_addr || each->ifa_addr->sa_family != AF_INET || device != each->ifa_name)
            continue;
        sockaddr_in found;
        std::memcpy(&found, each->ifa_addr, sizeof found);
        if (ntohl(found.sin_addr.s_addr) == address)
            return true;
    }
    return false;
}

unsigned idleMinutes(const NapiIndication& broken, const std::string& profile)
{
    NetworkProfile record;
    if (NAPI_ReadProfile(profile.c_str(), &record, 0, 0) < 0)
        return 0;
    return broken.infoByte == NAPI_BEARER_CSD ? record.csdTimeout : record.gprsTimeout;
}

} // namespace

std::string brokenReason(const NapiIndication& broken, const std::string& profile)
{
    const std::string device(broken.infoText, strnlen(broken.infoText, sizeof broken.infoText));
    if (!device.empty() && ::if_nametoindex(device.c_str()) == 0)
        return "the device " + device + " is gone";
    if (!device.empty() && broken.infoWord != 0 && !hasAddress(device, broken.infoWord))
        return "the device " + device + " has lost the address";
    if (const unsigned minutes = idleMinutes(broken, profile))
        return "the network ended it, or nothing went over it for " + std::to_string(minutes) +
               " min, its idle time-out";
    return "the network ended it";
}

} // namespace ctl
