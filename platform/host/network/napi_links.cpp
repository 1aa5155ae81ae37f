// The link calls of napi.h.
#include "napi.h"

#include <cstring>
#include <exception>

#include "network/forgotten_record.h"
#include "network/links/link_engine.h"
#include "network/links/resolver_config.h"
#include "network/links/socket_binding.h"

using network::LinkEngine;

// Nothing is thrown to callers, who may be C. What is thrown here is want of memory or of locks.
template <typename Call> static int guarded(Call call) noexcept
{
    try {
        return call(LinkEngine::instance());
    } catch (const std::exception&) {
        return NAPI_ERR_RESOURCES;
    }
}

int NAPI_Init(int mode)
{
    if (mode != 0 && mode != 4)
        return NAPI_ERR_ARGUMENT;
    return guarded([](LinkEngine& engine) {
        if (network::networkConfig()->bearer == network::BearerChoice::NetworkManager)
            network::NetworkManagerBearer::prepare();
        return engine.start();
    });
}

int NAPI_Fini()
{
    return guarded([](LinkEngine& engine) { return engine.stop(); });
}

int NAPI_OpenLink(const char* name)
{
    return guarded([name](LinkEngine& engine) -> int {
        if (!engine.running())
            return NAPI_ERR_NOT_INITIALISED;
        if (!name)
            return NAPI_ERR_ARGUMENT;
        network::ForgottenRecord record;
        if (int error = NAPI_ReadProfile(name, &record, 0, 0))
            return error;
        return engine.open(name, record, network::networkConfig());
    });
}

int NAPI_CloseLink(int linkId)
{
    return guarded([linkId](LinkEngine& engine) { return engine.close(linkId); });
}

int NAPI_BindSocket2Link(int linkId, int socket)
{
    return guarded([=](LinkEngine& engine) {
        network::LinkFacts facts;
        int result = engine.facts(linkId, &facts);
        return result == NAPI_OK ? network::bindToDevice(socket, facts.device.name) : result;
    });
}

namespace {

int deviceName(const network::Device& device, void* buffer, int length)
{
    char name[16] = "";
    if (length < static_cast<int>(sizeof name))
        return NAPI_ERR_ARGUMENT;
    device.name.copy(name, sizeof name - 1);
    std::memcpy(buffer, name, sizeof name);
    return NAPI_OK;
}

int deviceAddress(const network::Device& device, void* buffer, int length)
{
    if (length < static_cast<int>(sizeof device.address))
        return NAPI_ERR_ARGUMENT;
    std::memcpy(buffer, &device.address, sizeof device.address);
    return NAPI_OK;
}

} // namespace

int NAPI_GetDeviceInfo(int linkId, int item, void* buffer, int length)
{
    return guarded([=](LinkEngine& engine) -> int {
        network::LinkFacts facts;
        if (int error = engine.facts(linkId, &facts))
            return error;
        if (!buffer)
            return NAPI_ERR_ARGUMENT;
        if (item == NAPI_DEVICE_NAME)
            return deviceName(facts.device, buffer, length);
        if (item == NAPI_DEVICE_ADDRESS)
            return deviceAddress(facts.device, buffer, length);
        return NAPI_ERR_ARGUMENT;
    });
}

int NAPI_DnsResolverConfig(int linkId)
{
    return guarded([linkId](LinkEngine& engine) -> int {
        network::LinkFacts facts;
        if (int error = engine.facts(linkId, &facts))
            return error;
        if (int error = engine.preferNameServers(linkId))
            return error;
        return network::writeResolverConfig(network::nameServers(facts.record, facts.device));
    });
}
