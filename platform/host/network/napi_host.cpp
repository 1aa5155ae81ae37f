#include "network/napi_host.h"

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
