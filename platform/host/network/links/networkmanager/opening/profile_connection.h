// What a profile becomes: a connection of NetworkManager.
#ifndef NETWORK_NETWORKMANAGER_PROFILE_CONNECTION_H
#define NETWORK_NETWORKMANAGER_PROFILE_CONNECTION_H

#include <string>
#include <string_view>

#include "network/links/bearer.h"
#include "network/links/networkmanager/bus/connection_settings.h"

namespace network {

// Why a profile cannot become a connection.
enum class ProfileFault { None, AccessPoint, UserName, Password };

// An access point name is 1 to 100 letters, digits and signs of ASCII, without quotes, commas and
// blanks; user name and password are texts without control characters and quotes. A modem is
// dialled with all three in one line of text.
ProfileFault faultOf(const NetworkProfile& record);

// The text of a field, which ends at its first NUL, or fills it.
template <std::size_t size> std::string_view fieldView(const char (&field)[size])
{
    std::string_view text(field, size);
    return text.substr(0, text.find('\0'));
}
template <std::size_t size> std::string fieldText(const char (&field)[size])
{
    return std::string(fieldView(field));
}

// Packet data with the profile's access point, user name, password and name servers. `owner` is the
// name of the user who alone may use and see it, or "" for everybody.
ConnectionSettings packetDataSettings(const Opening& opening, const std::string& owner);

// A wired network that gives an address, with the profile's name servers.
ConnectionSettings wiredSettings(const Opening& opening, const std::string& owner);

// What makes the servers of a connection the first ones of the machine's resolver.
Setting firstNameServers();

} // namespace network

#endif
