// The devices that could carry a link, as fields and texts.
#ifndef CTL_DEVICE_FIELDS_H
#define CTL_DEVICE_FIELDS_H

#include <map>
#include <string>
#include <vector>

#include "network/napi_host.h"

namespace ctl {

struct Cell;

// What --fields can name, in the order in which a device is shown.
std::vector<std::string> deviceFields();

// The cell of each field of a device.
std::map<std::string, Cell> deviceCells(const napihost::LinkDevice& device);

// The interfaces of the devices, for the completion: without any, and soon, where the services do
// not answer.
std::vector<std::string> deviceNames();

} // namespace ctl

#endif
