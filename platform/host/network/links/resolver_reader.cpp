#include "network/links/resolver_reader.h"

#include <algorithm>

#include <net/if.h>

#include "base/ip_address.h"

namespace network {

constexpr size_t kMostServers = 16;

// Takes the next word off a line.
static std::string_view takeWord(std::string_view* line)
{
    constexpr std::string_view kBlanks = " \t\r\v\f";
    line->remove_prefix(std::min(line->find_first_not_of(kBlanks), line->size()));
    const std::string_view word = line->substr(0, line->find_first_of(kBlanks));
    line->remove_prefix(word.size());
    return word;
}

static bool isScope(std::string_view text)
{
    constexpr std::string_view kPlain =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789._-";
    return !text.empty() && text.size() < IF_NAMESIZE &&
           text.find_first_not_of(kPlain) == std::string_view::npos;
}

static bool isServer(std::string_view word)
{
    const size_t percent = word.find('%');
    if (percent == std::string_view::npos)
        return base::isIpAddress(std::string(word));
    const std::string address(word.substr(0, percent));
    return address.find(':') != std::string::npos && base::isIpAddress(address) &&
           isScope(word.substr(percent + 1));
}

std::vector<std::string> readNameServers(std::string_view text)
{
    std::vector<std::string> servers;
    while (!text.empty() && servers.size() < kMostServers) {
        std::string_view line = text.substr(0, text.find('\n'));
        text.remove_prefix(std::min(line.size() + 1, text.size()));
        if (takeWord(&line) != "nameserver")
            continue;
        if (const std::string_view server = takeWord(&line); isServer(server))
            servers.emplace_back(server);
    }
    return servers;
}

} // namespace network
