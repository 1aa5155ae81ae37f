// Texts for codes, for people to read.
#include "network/napi_host.h"

namespace {

struct Text
{
    int code;
    const char* text;
};

const Text kResults[] = {
    {NAPI_ERR_MEMORY_FULL,
     "no room: the disk or the quota is full, or there are too many profiles"},
    {NAPI_ERR_NOT_INITIALISED, "the network API is not initialised"},
    {NAPI_ERR_ARGUMENT, "a wrong argument"},
    {NAPI_ERR_NAME, "not a name that a profile can have"},
    {NAPI_ERR_NO_PROFILE, "no such profile"},
    {NAPI_ERR_EXISTS, "a profile of this name exists already"},
    {NAPI_ERR_DAMAGED, "the stored profile is damaged"},
    {NAPI_ERR_ACCESS, "permission denied by the file system"},
    {NAPI_ERR_IO, "an input or output error"},
    {NAPI_ERR_ROOT, "the root folder cannot be used"},
    {NAPI_ERR_NO_LINK, "no such link"},
    {NAPI_ERR_LINK_NOT_UP, "the link is not up"},
    {NAPI_ERR_TOO_MANY_LINKS, "all link ids are in use"},
    {NAPI_ERR_SOCKET, "not a socket that can be bound to a network device"},
    {NAPI_ERR_NOT_PERMITTED, "not permitted by the kernel"},
    {NAPI_ERR_RESOURCES, "out of descriptors, threads or memory"},
    {NAPI_ERR_BUSY, "another program is writing and has not ended for 10 seconds"},
    {NAPI_ERR_NOT_SYNCED,
     "the change is made, but the disk has not confirmed that it outlives a loss of power"},
};

const Text kCauses[] = {
    {NAPI_CAUSE_NONE, "no cause"},
    {NAPI_CAUSE_NO_BEARER, "nothing on this device can carry this profile"},
    {NAPI_CAUSE_NO_SERVICE, "no network in reach"},
    {NAPI_CAUSE_SIM, "no SIM card, or it is locked"},
    {NAPI_CAUSE_SUBSCRIPTION, "access point unknown or not subscribed"},
    {NAPI_CAUSE_AUTHENTICATION, "user name or password refused"},
    {NAPI_CAUSE_NO_ADDRESS, "the network device has no address"},
    {NAPI_CAUSE_MODEM, "the modem or its dialling failed"},
    {NAPI_CAUSE_NO_CARRIER, "no carrier"},
    {NAPI_CAUSE_DEVICE_GONE, "the network device is not there"},
    {NAPI_CAUSE_NO_SERVICE_DAEMON, "the service that manages the network does not run"},
    {NAPI_CAUSE_NOT_PERMITTED, "this user may not open links"},
    {NAPI_CAUSE_TIMEOUT, "no answer in time"},
    {NAPI_CAUSE_CANCELLED, "cancelled by the user"},
    {NAPI_CAUSE_NOT_SUPPORTED, "circuit-switched calls need a dial-up modem"},
    {NAPI_CAUSE_WIFI, "the WiFi network could not be joined"},
    {NAPI_CAUSE_BUSY, "busy"},
    {NAPI_CAUSE_UNKNOWN, "unknown cause"},
};

const Text kIndications[] = {
    {NAPI_IND_DEFAULT_LINK, "default link connected"},
    {NAPI_IND_CONNECTED, "connected"},
    {NAPI_IND_OPEN_FAILED, "opening failed"},
    {NAPI_IND_BROKEN, "broken"},
};

template <typename Texts> const char* find(const Texts& texts, int code, const char* otherwise)
{
    for (const Text& one : texts) {
        if (one.code == code)
            return one.text;
    }
    return otherwise;
}

} // namespace

namespace napihost {

const char* resultText(int result)
{
    return result >= 0 ? "done" : find(kResults, result, "a result that is not known here");
}

const char* causeText(int cause)
{
    return find(kCauses, cause, "a cause that is not known here");
}

const char* indicationText(int type)
{
    return find(kIndications, type, "an indication that is not known here");
}

} // namespace napihost
