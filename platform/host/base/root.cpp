#include "base/root.h"

#include <cstdlib>

namespace base {

namespace {

std::string variable(const char* name)
{
    const char* value = std::getenv(name);
    std::string text = value ? value : "";
    while (text.size() > 1 && text.back() == '/')
        text.pop_back();
    return text;
}

} // namespace

std::string rootFolder()
{
    if (std::string root = variable("VORN_ROOT"); !root.empty())
        return root;
    if (std::string data = variable("XDG_DATA_HOME"); !data.empty())
        return data + "/vorn";
    if (std::string home = variable("HOME"); !home.empty())
        return home + "/.local/share/vorn";
    return {};
}

} // namespace base
