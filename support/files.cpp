#include "support/files.h"

#include <cstdio>
#include <string>

#include "support/text.h"

namespace support {

namespace {

bool isName(const std::string& path)
{
    return !path.empty() && path.find('\0') == std::string::npos;
}

} // namespace

bool renamePath(const QString& from, const QString& to)
{
    const std::string source = utf8(from);
    const std::string target = utf8(to);
    return isName(source) && isName(target) && std::rename(source.c_str(), target.c_str()) == 0;
}

} // namespace support
