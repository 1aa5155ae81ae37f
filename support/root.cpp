#include "support/root.h"

#include <cstddef>
#include <string>

#include "support/text.h"

// A network API that keeps the phone's files below a folder of its own has this function. The
// phone's has not, and then the name is null.
extern "C" int NAPIHOST_RootFolder(char* buffer, std::size_t size) __attribute__((weak));

namespace support {

QString rootFolder()
{
    if (!NAPIHOST_RootFolder)
        return QString();
    std::string folder(4096, '\0');
    if (NAPIHOST_RootFolder(&folder[0], folder.size()) != 0)
        return QString();
    return fromUtf8(folder.c_str());
}

} // namespace support
