// Preloaded into vornctl by its tests: devices and steps as the services would tell them
// (VORN_TEST_DEVICES and VORN_TEST_STEPS, set to anything), where no service runs.
#include <cstdlib>

#include "network/napi_host.h"

namespace {

napihost::LinkDevice modemOf(const char* interface, const char* port)
{
    napihost::LinkDevice device;
    device.kind = NAPI_BEARER_GPRS;
    device.interface = interface;
    device.port = port;
    return device;
}

napihost::LinkDevice readyModem()
{
    napihost::LinkDevice device = modemOf("wwan0", "cdc-wdm0");
    device.state = "connected";
    device.operatorName = "Good \x1B[2JTelecom";
    device.operatorCode = "26201";
    device.technology = "lte";
    device.registration = "home";
    device.sim = "ready";
    device.signal = 71;
    return device;
}

napihost::LinkDevice lockedModem()
{
    napihost::LinkDevice device = modemOf("ttyUSB2", "ttyUSB2");
    device.state = "unavailable";
    device.cause = NAPI_CAUSE_SIM;
    device.detail = 12;
    device.problem = "the SIM card asks for its PUK";
    device.remedy = "mmcli --sim any --puk NUMBER --pin NUMBER";
    device.sim = "puk";
    return device;
}

napihost::LinkDevice network(const char* interface, bool wired)
{
    napihost::LinkDevice device;
    device.kind = NAPI_BEARER_WIFI;
    device.wired = wired;
    device.interface = device.port = interface;
    device.state = "disconnected";
    return device;
}

} // namespace

namespace napihost {

VORN_PLATFORM_API Finding listLinkDevices(std::vector<LinkDevice>* devices, int /*timeLimitMs*/)
{
    devices->clear();
    if (!std::getenv("VORN_TEST_DEVICES"))
        return {"org.freedesktop.NetworkManager", "NetworkManager does not run",
                "sudo systemctl start NetworkManager"};
    if (*std::getenv("VORN_TEST_DEVICES"))
        *devices = {readyModem(), lockedModem(), network("wlan0", false), network("eth0", true)};
    return {};
}

VORN_PLATFORM_API void
watchLinkSteps(std::function<void(int link, const std::string& text)> listener)
{
    if (!std::getenv("VORN_TEST_STEPS") || !listener)
        return;
    listener(0, "dialling with the access point \"internet\" on cdc-wdm0");
    listener(0, "the service says \x1B[2J");
}

} // namespace napihost
