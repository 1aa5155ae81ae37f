#include "wizard/form/profilefolder.h"

#include <string>

#include <napi.h>

#include "support/files.h"
#include "support/log.h"
#include "support/root.h"
#include "support/text.h"

namespace wizard {

static QString pathOf(const QString& name)
{
    return support::rootFolder() + "/vornlocal/download/appwrite/NetProfile/" + name;
}

static bool isControl(unsigned int unit)
{
    return unit < 0x20 || (unit >= 0x7F && unit < 0xA0);
}

static bool isFolderName(const QString& name)
{
    const int length = int(name.length());
    if (length == 0 || name[0] == '.' || support::utf8(name).size() > NAPI_PROFILE_NAME_MAX)
        return false;
    for (int i = 0; i < length; ++i) {
        const QChar letter = name[i];
        if (letter == '/' || isControl(letter.unicode()))
            return false;
    }
    return true;
}

bool renameProfileFolder(const QString& from, const QString& to)
{
    const QString source = pathOf(from);
    const QString target = pathOf(to);
    if (isFolderName(from) && isFolderName(to) && support::renamePath(source, target))
        return true;
    support::logPrint(4, "rename profile name from %s to %s failed!\n",
                      support::utf8(source).c_str(), support::utf8(target).c_str());
    return false;
}

} // namespace wizard
