#include "network/napi_host.h"

namespace napihost {

const char* resultText(int result)
{
    return result >= 0 ? "done" : "unknown result";
}

} // namespace napihost
