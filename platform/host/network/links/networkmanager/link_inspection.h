// What keeps packet data from being opened over NetworkManager.
#ifndef NETWORK_NETWORKMANAGER_LINK_INSPECTION_H
#define NETWORK_NETWORKMANAGER_LINK_INSPECTION_H

#include <vector>

#include "network/napi_host.h"

namespace network {

// Appends what the services say is in the way: one that does not run, a right that is missing, no
// modem, a locked SIM, no registration. Waits for them as long as the limit.
void inspectServices(int timeLimitMs, std::vector<napihost::Finding>* findings);

} // namespace network

#endif
