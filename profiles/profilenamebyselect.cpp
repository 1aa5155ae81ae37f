#include <stdlib.h>
#include <string.h>

#include <memory>

#include <qstringlist.h>

#include <napi.h>

#include "profilefunctions.h"
#include "profiles/nameslots.h"
#include "support/guarded.h"
#include "support/log.h"
#include "support/loop.h"
#include "support/memory.h"
#include "vornqtnapi_texts.h"
#include "yprofileselectdlg.h"

using support::logPrint;

namespace {

struct Freeing
{
    void operator()(char* buffer) const { free(buffer); }
};

typedef std::unique_ptr<char, Freeing> Buffer;

// Stores in `count` how many names there are, at most as many as the network API keeps. Result: 0,
// or the result of getProfileNamebySelect().
int countNames(unsigned int& count)
{
    count = 0;
    const int result = NAPI_ListAllProfile(nullptr, &count);
    if (result < 0) {
        logPrint(support::LogError, "NAPI_ListAllProfile return error\n");
        return result;
    }
    if (count == 0) {
        logPrint(support::LogError, "No profile exists.\n");
        return VORN_ERR_NONE_CHOSEN;
    }
    // The number is asked for again where it counts, as the phone does.
    if (NAPI_GetMaxProfiles() < count)
        count = NAPI_GetMaxProfiles();
    return 0;
}

// Null when there is no memory. Each name is empty until the network API has filled its slot,
// whatever count it reports.
Buffer newBuffer(unsigned int count)
{
    std::size_t size = 0;
    Buffer buffer(profiles::slotsSize(count, &size) ? static_cast<char*>(malloc(size)) : nullptr);
    for (std::size_t slot = 0; buffer && slot < size; slot += NAPI_PROFILE_NAME_SLOT)
        memset(buffer.get() + slot, 0, 4);
    return buffer;
}

// Fills `buffer`, which has room for `room` names, and appends them to `names`. Result: as
// countNames().
int listNames(char* buffer, unsigned int room, QStringList& names)
{
    unsigned int count = room;
    const int result = NAPI_ListAllProfile(buffer, &count);
    if (result < 0) {
        logPrint(support::LogError, "NAPI_ListAllProfile return error\n");
        return result;
    }
    for (unsigned int i = 0; i < count && i < room; ++i)
        names.append(profiles::slotName(buffer, i));
    return 0;
}

// Shows the dialog until the user has decided, and deletes it. The two calls around that have it
// painted at once, and gone from the screen before the caller goes on.
int runDialog(YProfileSelectDlg* newDialog, QString& name)
{
    int result = VORN_ERR_NONE_CHOSEN;
    {
        const support::Owned<YProfileSelectDlg> dialog(newDialog);
        support::wakeLoop();
        const bool isAccepted = support::runDialog(*newDialog) != 0;
        if (isAccepted && !dialog.isNull() && dialog->selectedProfile(name) == 0)
            result = 0;
    }
    support::processPending();
    return result;
}

int withoutMemory()
{
    logPrint(support::LogError, "Can not malloc memory for profiles.\n");
    return VORN_ERR_NONE_CHOSEN;
}

int select(QString& name)
{
    unsigned int count = 0;
    if (const int result = countNames(count))
        return result;
    Buffer buffer = newBuffer(count);
    if (!buffer)
        return withoutMemory();
    QStringList names;
    if (const int result = listNames(buffer.get(), count, names))
        return result;
    YProfileSelectDlg* dialog = new YProfileSelectDlg(names, name, nullptr, nullptr);
    buffer.reset();
    return runDialog(dialog, name);
}

} // namespace

int getProfileNamebySelect(QString& name)
{
    return support::withMemory([&name] { return select(name); }, withoutMemory);
}
