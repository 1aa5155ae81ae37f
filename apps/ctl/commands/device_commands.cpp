// The devices that could carry a link, as NetworkManager and ModemManager tell them.
#include "commands/device_fields.h"
#include "failure.h"
#include "line/request.h"
#include "listing.h"
#include "output.h"
#include "suggestion.h"
#include "terminal_text.h"

namespace ctl {

namespace {

using napihost::LinkDevice;

// A service that has just been started answers within it, a dead one does not make a person wait.
constexpr int serviceLimitMs = 5000;

const char noDevices[] = "there is no modem, no WiFi and no Ethernet that NetworkManager knows.";

std::vector<LinkDevice> knownDevices(const std::string& action)
{
    std::vector<LinkDevice> devices;
    const napihost::Finding obstacle = napihost::listLinkDevices(&devices, serviceLimitMs);
    if (!obstacle.problem.empty())
        throw Failure(Exit::Service, "cannot " + action + ": " + obstacle.problem + '.',
                      "Devices are those of NetworkManager: " + obstacle.remedy);
    return devices;
}

LinkDevice deviceNamed(const std::string& name)
{
    std::vector<std::string> names;
    for (const LinkDevice& device : knownDevices("show the device " + inQuotes(name))) {
        if (device.interface == name || device.port == name)
            return device;
        names.push_back(device.interface);
    }
    const std::string closest = suggestion(name, names);
    throw Failure(Exit::NoEntry,
                  "cannot show the device " + inQuotes(name) + ": there is no such device.",
                  closest.empty() ? "\"vornctl device list\" shows the devices." : closest);
}

void printForPeople(const std::map<std::string, Cell>& cells, const std::vector<std::string>& names)
{
    Table rows({"FIELD", "VALUE"});
    for (const std::string& name : names)
        rows.add({name, cells.at(name).shown});
    print(rows.text());
}

} // namespace

int deviceList(const Request& request)
{
    const std::vector<std::string> usual = {"interface",  "kind",   "state", "operator",
                                            "technology", "signal", "sim",   "problem"};
    const std::vector<std::string> all = deviceFields();
    Listing listing(request, chosenFields(request, all, request.json ? all : usual));
    for (const LinkDevice& device : knownDevices("list the devices"))
        listing.add(deviceCells(device));
    listing.print(noDevices);
    return 0;
}

int deviceShow(const Request& request)
{
    const std::vector<std::string> names = chosenFields(request, deviceFields(), deviceFields());
    const std::map<std::string, Cell> cells = deviceCells(deviceNamed(request.name));
    if (!request.json && !request.terse) {
        printForPeople(cells, names);
        return 0;
    }
    Json object = Json::object();
    std::vector<Cell> row;
    for (const std::string& name : names) {
        row.push_back(cells.at(name));
        object[name] = row.back().json;
    }
    if (request.json)
        printJson(object);
    else
        print(terseLine(row));
    return 0;
}

} // namespace ctl
