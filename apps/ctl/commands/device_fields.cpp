#include "commands/device_fields.h"

#include "listing.h"

namespace ctl {

namespace {

using napihost::LinkDevice;

// A person who has pressed the key of the completion waits for it.
constexpr int completionLimitMs = 500;

Cell textCell(const std::string& text)
{
    return {text.empty() ? "-" : text, text, text};
}

const char* kindText(const LinkDevice& device)
{
    if (device.kind == NAPI_BEARER_GPRS)
        return "modem";
    return device.wired ? "ethernet" : "wifi";
}

Cell signalCell(const LinkDevice& device)
{
    if (device.signal < 0)
        return {"-", "", nullptr};
    const std::string number = std::to_string(device.signal);
    return {number + '%', number, device.signal};
}

Cell numberCell(int number)
{
    return {std::to_string(number), std::to_string(number), number};
}

struct DeviceField
{
    const char* name;
    Cell (*cell)(const LinkDevice& device);
};

const DeviceField table[] = {
    {"interface", [](const LinkDevice& device) { return textCell(device.interface); }},
    {"port", [](const LinkDevice& device) { return textCell(device.port); }},
    {"kind", [](const LinkDevice& device) { return textCell(kindText(device)); }},
    {"state", [](const LinkDevice& device) { return textCell(device.state); }},
    {"operator", [](const LinkDevice& device) { return textCell(device.operatorName); }},
    {"operator-code", [](const LinkDevice& device) { return textCell(device.operatorCode); }},
    {"technology", [](const LinkDevice& device) { return textCell(device.technology); }},
    {"registration", [](const LinkDevice& device) { return textCell(device.registration); }},
    {"signal", signalCell},
    {"sim", [](const LinkDevice& device) { return textCell(device.sim); }},
    {"cause", [](const LinkDevice& device) { return numberCell(device.cause); }},
    {"detail", [](const LinkDevice& device) { return numberCell(device.detail); }},
    {"problem", [](const LinkDevice& device) { return textCell(device.problem); }},
    {"remedy", [](const LinkDevice& device) { return textCell(device.remedy); }},
};

} // namespace

std::vector<std::string> deviceFields()
{
    std::vector<std::string> names;
    for (const DeviceField& field : table)
        names.emplace_back(field.name);
    return names;
}

std::map<std::string, Cell> deviceCells(const LinkDevice& device)
{
    std::map<std::string, Cell> cells;
    for (const DeviceField& field : table)
        cells[field.name] = field.cell(device);
    return cells;
}

std::vector<std::string> deviceNames()
{
    std::vector<LinkDevice> devices;
    napihost::listLinkDevices(&devices, completionLimitMs);
    std::vector<std::string> names;
    for (const LinkDevice& device : devices)
        names.push_back(device.interface);
    return names;
}

} // namespace ctl
