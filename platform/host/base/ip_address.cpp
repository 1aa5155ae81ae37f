#include "base/ip_address.h"

#include <arpa/inet.h>

namespace base {

namespace {

std::optional<uint32_t> partOf(std::string_view text)
{
    uint32_t value = 0;
    for (const char digit : text) {
        if (digit < '0' || digit > '9')
            return {};
        value = value * 10 + static_cast<uint32_t>(digit - '0');
        if (value > 255)
            return {};
    }
    return text.empty() ? std::nullopt : std::optional(value);
}

} // namespace

std::optional<uint32_t> ipv4Of(std::string_view text)
{
    uint32_t address = 0;
    for (int part = 0; part < 4; ++part) {
        const std::size_t end = part < 3 ? text.find('.') : text.size();
        if (end == std::string_view::npos)
            return {};
        const std::optional<uint32_t> value = partOf(text.substr(0, end));
        if (!value)
            return {};
        address = address << 8 | *value;
        text.remove_prefix(part < 3 ? end + 1 : end);
    }
    return address;
}

std::string ipv4Text(uint32_t address)
{
    std::string text = std::to_string(address >> 24);
    for (int shift = 16; shift >= 0; shift -= 8)
        text += '.' + std::to_string(address >> shift & 0xFF);
    return text;
}

bool isIpAddress(const std::string& text)
{
    in6_addr parsed;
    return text.find('\0') == std::string::npos &&
           (::inet_pton(AF_INET, text.c_str(), &parsed) == 1 ||
            ::inet_pton(AF_INET6, text.c_str(), &parsed) == 1);
}

} // namespace base
