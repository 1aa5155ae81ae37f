// What the tools are told about the devices that could carry a link.
#include <algorithm>
#include <cerrno>
#include <cstring>
#include <iterator>
#include <utility>

#include "network/links/networkmanager/bus/bus_wait.h"
#include "network/links/networkmanager/link_inspection.h"
#include "network/links/networkmanager/rights.h"
#include "network/links/networkmanager/services/device_choice.h"
#include "network/links/networkmanager/services/device_texts.h"
#include "network/links/networkmanager/services/service_listing.h"
#include "network/links/networkmanager/services/service_names.h"
#include "network/links/networkmanager/step_report.h"
#include "network/napi_host.h"
#include "network/network_config.h"

namespace network {

using napihost::Finding;
using napihost::LinkDevice;

namespace {

constexpr char theBus[] = "org.freedesktop.DBus";

Finding finding(const std::string& what, const Hint& hint)
{
    return {what, hint.problem, hint.remedy};
}

// Result: why the services could not be asked; nothing where its problem is empty.
Finding askServices(BusWait& wait, ServiceListing& listing)
{
    bool done = false;
    auto answered = [&done](const ServicePicture&) { done = true; };
    int error = wait.open();
    if (error == 0)
        error = listing.start(wait.bus(), true, answered);
    if (error == 0)
        error = wait.until(done);
    if (error != 0)
        return finding(error == ETIMEDOUT ? nm::service : theBus, hintForBus(error));
    const Cause& unreachable = listing.picture().unreachable;
    if (unreachable.cause != NAPI_CAUSE_NONE)
        return finding(nm::service, hintForService(unreachable));
    return {};
}

NapiBearerKind kindOf(const ServiceDevice& device)
{
    return device.type == nm::Modem ? NAPI_BEARER_GPRS : NAPI_BEARER_WIFI;
}

bool couldCarry(const ServiceDevice& device)
{
    return device.type == nm::Modem || device.type == nm::Wifi || device.type == nm::Ethernet ||
           device.type == nm::Veth;
}

void describeModem(const ServiceModem& modem, LinkDevice* told)
{
    told->operatorName = modem.operatorName;
    told->operatorCode = modem.operatorCode;
    told->technology = technologyText(modem.technologies);
    told->registration = registrationText(modem.registration);
    told->signal = static_cast<int>(modem.signal);
    told->sim = simText(modem);
}

bool isRegistered(const ServiceModem& modem)
{
    constexpr int64_t enabled = 6;
    constexpr uint32_t home = 1;
    return modem.state < enabled || modem.registration == home || isAbroad(modem);
}

// What keeps a device from carrying a link; nothing where its problem is empty.
Finding inspectDevice(const ServiceDevice& device, const ServicePicture& picture)
{
    DeviceChoice choice = judgeDevice(kindOf(device), device, picture);
    const ServiceModem* modem = picture.findModem(device.modem);
    bool locked = modem && std::strcmp(simText(*modem), "pin") == 0;
    if (choice.way == DeviceChoice::Way::None || locked) {
        return finding(device.interface, locked ? hintForSim(*modem) : hintFor(choice.cause));
    }
    if (!modem || isRegistered(*modem))
        return {device.interface, "", ""};
    return {device.interface,
            std::string("the modem is not registered (") + registrationText(modem->registration) +
                ")",
            "look for a place with reception, and ask the operator whether the SIM is active"};
}

LinkDevice describe(const ServiceDevice& device, const ServicePicture& picture)
{
    LinkDevice told;
    told.kind = kindOf(device);
    told.wired = device.type == nm::Ethernet || device.type == nm::Veth;
    told.interface = device.ipInterface.empty() ? device.interface : device.ipInterface;
    told.port = device.interface;
    told.state = deviceStateText(device.state);
    if (const ServiceModem* modem = picture.findModem(device.modem))
        describeModem(*modem, &told);
    DeviceChoice choice = judgeDevice(told.kind, device, picture);
    if (choice.way == DeviceChoice::Way::None) {
        told.cause = choice.cause.cause;
        told.detail = choice.cause.detail;
    }
    Finding found = inspectDevice(device, picture);
    told.problem = found.problem;
    told.remedy = found.remedy;
    return told;
}

// The rights to control the network, and to have connections of one's own, without being asked for
// a password.
bool mayOpenLinks(BusWait& wait)
{
    BusValue rights =
        wait.ask(wait.bus().call({nm::service, nm::managerPath, nm::manager, "GetPermissions"}));
    const char* const needed[] = {"org.freedesktop.NetworkManager.network-control",
                                  "org.freedesktop.NetworkManager.settings.modify.own"};
    return std::all_of(std::begin(needed), std::end(needed), [&rights](const char* right) {
        const std::string& told = rights.at(right).toText();
        return told.empty() || told == "yes";
    });
}

void inspectModems(const ServicePicture& picture, std::vector<Finding>* findings)
{
    bool any = false;
    for (const ServiceDevice& device : picture.devices) {
        if (device.type != nm::Modem)
            continue;
        any = true;
        Finding found = inspectDevice(device, picture);
        const ServiceModem* modem = picture.findModem(device.modem);
        if (found.problem.empty() && modem && isAbroad(*modem) && !networkConfig()->roaming)
            found = finding(device.interface, hintForRoaming());
        if (!found.problem.empty())
            findings->push_back(found);
    }
    if (any)
        return;
    if (picture.modemService)
        findings->push_back({"packet data", "there is no modem",
                             "plug one in; \"mmcli --list-modems\" shows those that are known"});
    else
        findings->push_back({mm::service, "ModemManager does not run",
                             "sudo apt install modemmanager; sudo systemctl enable --now "
                             "ModemManager"});
}

// The SIM of the first modem that has one.
std::string operatorOfSim(BusWait& wait, const ServicePicture& picture)
{
    for (const ServiceModem& modem : picture.modems) {
        BusCall question = wait.bus().call({mm::service, modem.path, propertiesInterface, "Get"});
        question.text(mm::modem).text("Sim");
        std::string sim = objectPath(wait.ask(question));
        if (sim.empty())
            continue;
        BusCall facts = wait.bus().call({mm::service, sim, propertiesInterface, "Get"});
        facts.text(mm::sim).text("OperatorIdentifier");
        std::string code = wait.ask(facts).toText();
        if (!code.empty())
            return code;
    }
    return "";
}

} // namespace

void inspectServices(int timeLimitMs, std::vector<Finding>* findings)
{
    BusWait wait{std::chrono::milliseconds(timeLimitMs)};
    ServiceListing listing;
    Finding obstacle = askServices(wait, listing);
    if (!obstacle.problem.empty()) {
        findings->push_back(obstacle);
        return;
    }
    if (!mayOpenLinks(wait))
        findings->push_back({nm::service, "this user may not open links", grantingLine()});
    inspectModems(listing.picture(), findings);
}

} // namespace network

namespace napihost {

using network::BusWait;

Finding listLinkDevices(std::vector<LinkDevice>* devices, int timeLimitMs)
{
    BusWait wait{std::chrono::milliseconds(timeLimitMs)};
    network::ServiceListing listing;
    devices->clear();
    Finding obstacle = network::askServices(wait, listing);
    for (const network::ServiceDevice& device : listing.picture().devices) {
        if (network::couldCarry(device))
            devices->push_back(network::describe(device, listing.picture()));
    }
    return obstacle;
}

std::string simOperator(int timeLimitMs)
{
    BusWait wait{std::chrono::milliseconds(timeLimitMs)};
    network::ServiceListing listing;
    network::askServices(wait, listing);
    return wait.bus().isOpen() ? network::operatorOfSim(wait, listing.picture()) : "";
}

void watchLinkSteps(std::function<void(int link, const std::string& text)> listener)
{
    network::listenToSteps(std::move(listener));
}

} // namespace napihost
