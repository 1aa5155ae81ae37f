#include "network/links/networkmanager/bus/sd_bus.h"

#include <dlfcn.h>

namespace network {

template <typename Function> static bool find(void* library, const char* name, Function* function)
{
    *function = reinterpret_cast<Function>(::dlsym(library, name));
    return *function != nullptr;
}

namespace {

// The library is never unloaded: a connection may live as long as the process.
const SdBus* load()
{
    static SdBus functions;
    void* library = ::dlopen("libsystemd.so.0", RTLD_NOW | RTLD_LOCAL);
    if (!library)
        return nullptr;
    bool complete = true;
#define NETWORK_SD_BUS_FIND(name) complete = find(library, #name, &functions.name) && complete;
    NETWORK_SD_BUS_FUNCTIONS(NETWORK_SD_BUS_FIND)
#undef NETWORK_SD_BUS_FIND
    return complete ? &functions : nullptr;
}

} // namespace

const SdBus* sdBus()
{
    static const SdBus* loaded = load();
    return loaded;
}

} // namespace network
