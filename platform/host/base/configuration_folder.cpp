#include "base/configuration_folder.h"

#include <cerrno>
#include <sys/stat.h>

#include "base/durable_file.h"
#include "base/root.h"

namespace base {

std::string ConfigurationFolder::path()
{
    const std::string root = rootFolder();
    return root.empty() ? root : root + "/etc";
}

int ConfigurationFolder::open()
{
    if (int error = makeRoot())
        return error;
    if (int error = makeFolders(path(), 0755))
        return error;
    if (int error = m_root.open(rootFolder()))
        return error;
    m_folder = openFolder(path());
    return m_folder.isOpen() ? 0 : errno;
}

int ConfigurationFolder::replace(const std::string& name, std::string_view bytes, mode_t mode)
{
    return replaceFile(m_folder.get(), name, bytes, mode);
}

namespace {

bool isThere(const std::string& path)
{
    struct stat status;
    return ::lstat(path.c_str(), &status) == 0;
}

} // namespace

std::optional<FileConcern> concernOfLeftover(const std::string& name, std::string* leftover)
{
    *leftover = ConfigurationFolder::path() + '/' + pendingName(name);
    if (!isThere(*leftover))
        return {};
    LockedFolder root;
    if (root.open(rootFolder(), std::chrono::milliseconds(0)) != 0 || !isThere(*leftover))
        return {};
    return FileConcern{"left by a program that was ended while it wrote " + name,
                       "rm " + shellWord(*leftover)};
}

} // namespace base
