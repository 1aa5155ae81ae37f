#include "wizard/form/profilefolder.h"

#include <string>

#include "support/files.h"
#include "support/log.h"
#include "support/profilename.h"
#include "support/root.h"
#include "support/text.h"

namespace wizard {

namespace {

QString pathOf(const QString& name)
{
    return support::rootFolder() + "/vornlocal/download/appwrite/NetProfile/" + name;
}

} // namespace

bool renameProfileFolder(const QString& from, const QString& to)
{
    const QString source = pathOf(from);
    const QString target = pathOf(to);
    if (support::isProfileName(from) && support::isProfileName(to) &&
        support::renamePath(source, target))
        return true;
    support::logPrint(support::LogError, "rename profile name from %s to %s failed!\n",
                      support::utf8(source).c_str(), support::utf8(target).c_str());
    return false;
}

} // namespace wizard
