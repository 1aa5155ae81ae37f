// From the JSON of etc/network.json to a NetworkConfig.
#ifndef NETWORK_NETWORK_CONFIG_READER_H
#define NETWORK_NETWORK_CONFIG_READER_H

#include "base/json_document.h"
#include "network/network_config.h"

namespace network {

// Where the file is below the present root; "" when there is no root.
std::string networkConfigPath();

// Takes everything from the document; what is wrong in it gets its default, and an entry in the
// document's list of problems.
NetworkConfig readNetworkConfig(base::JsonDocument& document);

} // namespace network

#endif
