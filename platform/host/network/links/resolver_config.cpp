#include "network/links/resolver_config.h"

#include "base/configuration_folder.h"
#include "base/ip_address.h"
#include "base/regular_file.h"
#include "network/file_results.h"
#include "network/links/resolver_reader.h"

namespace network {

namespace {

std::vector<std::string> profileServers(const NetworkProfile& record, NapiBearerKind kind)
{
    bool dialled = kind == NAPI_BEARER_CSD;
    std::vector<std::string> servers;
    for (uint32_t address :
         {dialled ? record.csdDns1 : record.gprsDns1, dialled ? record.csdDns2 : record.gprsDns2}) {
        if (address != 0)
            servers.push_back(base::ipv4Text(address));
    }
    return servers;
}

// A file that cannot be used names no servers.
std::vector<std::string> machineServers()
{
    constexpr std::size_t largest = 64 * 1024;
    std::string text;
    if (base::readRegularFile("/etc/resolv.conf", largest, &text) != 0)
        return {};
    return readNameServers(text);
}

} // namespace

std::vector<std::string> nameServers(const NetworkProfile& record, const Device& device)
{
    std::vector<std::string> servers = profileServers(record, device.kind);
    if (servers.empty())
        servers = device.nameServers;
    if (servers.empty())
        servers = machineServers();
    return servers;
}

namespace {

int resultOf(int error)
{
    int result = fileResult(error);
    bool listed = result == NAPI_OK || result == NAPI_ERR_MEMORY_FULL ||
                  result == NAPI_ERR_ACCESS || result == NAPI_ERR_RESOURCES ||
                  result == NAPI_ERR_BUSY || result == NAPI_ERR_NOT_SYNCED;
    return listed ? result : NAPI_ERR_IO;
}

} // namespace

int writeResolverConfig(const std::vector<std::string>& nameServers)
{
    if (int result = checkRoot())
        return result;
    base::ConfigurationFolder folder;
    if (int error = folder.open())
        return rootResult(error);
    std::string text;
    for (const std::string& server : nameServers)
        text += "nameserver " + server + "\n";
    // Every program of the phone resolves names, whoever it runs as.
    return resultOf(folder.replace("resolv.conf", text, 0644));
}

} // namespace network
