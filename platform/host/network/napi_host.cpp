#include "network/napi_host.h"

#include <cstring>

#include "base/root.h"

namespace napihost {

std::string rootFolder()
{
    return base::rootFolder();
}

std::string profilesFolder()
{
    return base::rootFolder() + "/vornlocal/download/appwrite/NetProfile";
}

} // namespace napihost

int NAPIHOST_RootFolder(char* buffer, std::size_t size)
{
    const std::string root = napihost::rootFolder();
    if (!buffer || root.size() >= size)
        return NAPI_ERR_ARGUMENT;
    std::memcpy(buffer, root.c_str(), root.size() + 1);
    return NAPI_OK;
}
