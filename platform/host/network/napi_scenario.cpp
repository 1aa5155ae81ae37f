// Playing with links whose fate the configuration tells.
#include <exception>

#include "network/links/link_engine.h"
#include "network/napi_host.h"
#include "network/network_config.h"

namespace napihost {

bool playsScenario()
{
    return network::networkConfig()->bearer == network::BearerChoice::Scenario;
}

int breakLink(int linkId)
{
    try {
        return network::LinkEngine::instance().playBreak(linkId);
    } catch (const std::exception&) {
        return NAPI_ERR_RESOURCES;
    }
}

int failNextOpening(int cause, int detail)
{
    if (cause < 1 || cause > 0xFFFF || detail < 0 || detail > 0xFFFF)
        return NAPI_ERR_ARGUMENT;
    if (!playsScenario())
        return NAPI_ERR_ARGUMENT;
    try {
        return network::LinkEngine::instance().playFailure(static_cast<NapiCause>(cause), detail);
    } catch (const std::exception&) {
        return NAPI_ERR_RESOURCES;
    }
}

} // namespace napihost
