// The wizard's entry points.

#include <string>

#include <napi.h>
#include <qstring.h>

#include "profilefunctions.h"
#include "support/guarded.h"
#include "support/log.h"
#include "support/memory.h"
#include "support/text.h"
#include "wizard/dataconnection_newwiz1.h"

using support::logPrint;

namespace {

int withMemory(int (*run)(QString& name), QString& name)
{
    return support::withMemory([run, &name] { return run(name); },
                               [] { return int(DataConnection_NewWiz1::ResultClosed); });
}

// Runs the wizard once. `storedName`, unless null, is the name of a profile that was stored.
int runWizard(const QString& name, bool creating, QString* storedName)
{
    const support::Owned<DataConnection_NewWiz1> page(
        new DataConnection_NewWiz1(name, creating, nullptr, nullptr, 0));
    page->reserved = nullptr;
    const int result = page->run();
    if (!page.isNull() && storedName && result == DataConnection_NewWiz1::ResultStored)
        *storedName = page->profileName();
    return result;
}

bool isValid(const std::string& name)
{
    const bool valid = NAPI_IsProfileValid(name.c_str()) == NAPI_OK;
    if (!valid)
        logPrint(support::LogError, "This profile is invalid.\n");
    return valid;
}

int create(QString& name)
{
    return runWizard(QString(), true, &name);
}

int copy(QString& name)
{
    const std::string bytes = support::utf8(name);
    if (!isValid(bytes))
        return 0;
    logPrint(support::LogProgress,
             "read profile ok, create instance of DataConnection_NewWiz, begin copy %s\n",
             bytes.c_str());
    return runWizard(name, true, nullptr);
}

int edit(QString& name)
{
    if (!isValid(support::utf8(name)))
        return 0;
    logPrint(support::LogProgress, "read profile ok, create instance of DataConnection_NewWiz\n");
    return runWizard(name, false, nullptr);
}

} // namespace

int createProfilebyUser(QString& name)
{
    return withMemory(create, name);
}

int copyProfilebyUser(QString& name)
{
    return withMemory(copy, name);
}

int editProfilebyUser(QString& name)
{
    return withMemory(edit, name);
}
