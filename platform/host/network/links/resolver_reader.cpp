#include "network/links/resolver_reader.h"

#include <algorithm>

#include <net/if.h>

#include "base/ip_address.h"

namespace network {

constexpr std::size_t mostServers = 16;

namespace {

// Takes the next word off a line.
std::string_view takeWord(std::string_view* line)
{
    constexpr std::string_view blanks = " \t\r\v\f";
    line->remove_prefix(std::min(line->find_first_not_of(blanks), line->size()));
    const std::string_view word = line->substr(0, line->find_first_of(blanks));
    line->remove_prefix(word.size());
    return word;
}

bool isScope(std::string_view text)
{
    constexpr std::string_view plain =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789._-";
    return !text.empty() && text.size() < IF_NAMESIZE &&
           text.find_first_not_of(plain) == std::string_view::npos;
}

bool isServer(std::string_view word)
{
    const std::size_t percent = word.find('%');
    if (percent == std::string_view::npos)
        return base::isIpAddress(std::string(word));
    const std::string address(word.substr(0, percent));
    return address.find(':') != std::string::npos && base::isIpAddress(address) &&
           isScope(word.substr(percent + 1));
}

} // namespace

std::vector<std::string> readNameServers(std::string_view text)
{
    std::vector<std::string> servers;
    while (!text.empty() && servers.size() < mostServers) {
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
