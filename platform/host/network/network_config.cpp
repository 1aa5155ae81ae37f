#include "network/network_config.h"

namespace network {

std::shared_ptr<const NetworkConfig> networkConfig()
{
    return std::make_shared<NetworkConfig>();
}

} // namespace network
