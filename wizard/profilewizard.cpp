// The wizard's entry points.

#include <string>

#include <napi.h>
#include <qstring.h>

#include "profilefunctions.h"
#include "support/guarded.h"
#include "support/log.h"
#include "support/text.h"
#include "wizard/dataconnection_newwiz1.h"

using support::logPrint;

typedef support::Guarded<DataConnection_NewWiz1> GuardedPage;

// Runs the wizard once. `storedName`, unless null, is the name of a profile that was stored. The
// page may be deleted by others while it runs.
static int runWizard(const QString& name, bool creating, QString* storedName)
{
    const GuardedPage page(new DataConnection_NewWiz1(name, creating, nullptr, nullptr, 0));
    page->reserved = nullptr;
    const int result = page->run();
    if (!page.isNull() && storedName && result == DataConnection_NewWiz1::ResultStored)
        *storedName = page->profileName();
    delete page.get();
    return result;
}

static bool isValid(const std::string& name)
{
    const bool valid = NAPI_IsProfileValid(name.c_str()) == NAPI_OK;
    if (!valid)
        logPrint(4, "This profile is invalid.\n");
    return valid;
}

int createProfilebyUser(QString& name)
{
    return runWizard(QString(), true, &name);
}

int copyProfilebyUser(QString& name)
{
    const std::string bytes = support::utf8(name);
    if (!isValid(bytes))
        return 0;
    logPrint(8, "read profile ok, create instance of DataConnection_NewWiz, begin copy %s\n",
             bytes.c_str());
    return runWizard(name, true, nullptr);
}

int editProfilebyUser(QString& name)
{
    if (!isValid(support::utf8(name)))
        return 0;
    logPrint(8, "read profile ok, create instance of DataConnection_NewWiz\n");
    return runWizard(name, false, nullptr);
}
