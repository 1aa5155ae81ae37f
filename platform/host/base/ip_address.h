// Addresses as text.
#ifndef BASE_IP_ADDRESS_H
#define BASE_IP_ADDRESS_H

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace base {

// The number of an IPv4 address, its first part in the most significant byte. Four decimal parts,
// as the phone reads them: 010 is ten, and nothing is short for anything. Nothing for other texts.
std::optional<uint32_t> ipv4Of(std::string_view text);

// "10.1.2.3".
std::string ipv4Text(uint32_t address);

// An address that every program reads alike: of IPv4 without leading zeros, of IPv6 without scope.
bool isIpAddress(const std::string& text);

} // namespace base

#endif
