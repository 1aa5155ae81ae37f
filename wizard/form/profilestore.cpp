#include "wizard/form/profilestore.h"

#include <string.h>

#include <string>

#include "support/log.h"
#include "support/text.h"
#include "wizard/form/codetables.h"
#include "wizard/form/profilefolder.h"
#include "wizard/form/record.h"
#include "wizard/form/recordmapping.h"

using support::logPrint;

namespace wizard {

namespace {

void storeForm(const FormFields& form, bool hasWifi, bool withPage2, NetworkProfile* record)
{
    record->storedMark = 1;
    record->flags = withPreference(record->flags,
                                   hasWifi ? form.choice(Choice::Preference) : int(CellularOnly));
    storePage1(form, record);
    if (withPage2)
        storePage2(form, record);
}

int createProfile(const std::string& name, const NetworkProfile& record)
{
    const int result = NAPI_CreateProfile(name.c_str(), &record, 0, 0);
    if (result != 0)
        logPrint(support::LogError, "NAPI_CreateProfile return %d\n", result);
    return result;
}

int modifyProfile(const std::string& name, const NetworkProfile& record)
{
    const int result = NAPI_ModifyProfile(name.c_str(), &record, 0, 0);
    if (result != 0)
        logPrint(support::LogError, "NAPI_ModifyProfile return %d\n", result);
    return result;
}

bool isSame(const NetworkProfile* before, const NetworkProfile& record)
{
    return before && memcmp(before, &record, sizeof record) == 0;
}

} // namespace

int notStoredWithoutMemory()
{
    logPrint(support::LogError, "NSETUP: can not get memory to save profile\n");
    return NotStored;
}

// Nothing allocates behind the renaming, so that no profile is left renamed and not written.
int storeProfile(const FormFields& form, const FormPurpose& purpose, const NetworkProfile* before,
                 bool withPage2, QString* storedName)
{
    const Record record = newRecord(before);
    if (!record)
        return notStoredWithoutMemory();
    storeForm(form, purpose.hasWifi, withPage2, record.get());
    const QString name = profileNameOf(form);
    const std::string bytes = support::utf8(name);
    int result = Stored;
    if (purpose.isCreating) {
        result = createProfile(bytes, *record);
    } else {
        const bool isRenamed = support::compare(name, purpose.storedName) != 0;
        if (isRenamed && !renameProfileFolder(purpose.storedName, name))
            return NotStored;
        if (!isSame(before, *record))
            result = modifyProfile(bytes, *record);
    }
    *storedName = name;
    return result;
}

} // namespace wizard
