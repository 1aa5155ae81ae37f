// Who asks NetworkManager, and what he has to be allowed.
#ifndef NETWORK_NETWORKMANAGER_RIGHTS_H
#define NETWORK_NETWORKMANAGER_RIGHTS_H

#include <string>

namespace network {

// The name of the user whom connections belong to; "" for the administrator, whose connections
// belong to everybody. An ordinary user's own connections take fewer rights. Reads the user
// database with the first call.
const std::string& connectionOwner();

// What to type, in one line, so that this user may open links.
std::string grantingLine();

// Says on standard error, once in a process, that the right is missing.
void tellMissingRight();

} // namespace network

#endif
