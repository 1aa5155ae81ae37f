#include <memory>
#include <new>

#include <qstring.h>

#include "profilefunctions.h"
#include "profiles/nameslots.h"
#include "support/log.h"
#include "support/memory.h"
#include "support/number.h"
#include "support/text.h"

using support::logPrint;

namespace {

// The number that a name has after the base; 0, which is never the highest, when it has none.
int suffixOf(const QString& name, const QString& base)
{
    const int length = int(name.length());
    const int baseLength = int(base.length());
    if (length < baseLength + 1 || support::compare(name.left(baseLength), base) != 0)
        return 0;
    return support::toInt32(name.right(length - baseLength));
}

int highestSuffix(const char* buffer, unsigned int count, const QString& base)
{
    int highest = 0;
    for (unsigned int i = 0; i < count; ++i) {
        const int suffix = suffixOf(profiles::slotName(buffer, i), base);
        if (highest < suffix)
            highest = suffix;
    }
    return highest;
}

// Null when there is no memory for so many names. Zeroed, so that no slot holds what memory held
// before, whatever count the network API reports.
char* newSlots(unsigned int count)
{
    std::size_t size = 0;
    return profiles::slotsSize(count, &size) ? new (std::nothrow) char[size]() : nullptr;
}

// Adding in unsigned numbers lets the number after the largest one wrap around, as it does on the
// phone.
int following(int number)
{
    return int(static_cast<unsigned int>(number) + 1U);
}

void withoutMemory()
{
    logPrint(support::LogError, "Can not alloc memory for profile.\n");
}

void assignNextName(QString& name)
{
    unsigned int count = 0;
    if (NAPI_ListAllProfile(nullptr, &count) < 0) {
        logPrint(support::LogError, "NAPI_ListAllProfile return error\n");
        return;
    }
    const unsigned int room = count;
    const std::unique_ptr<char[]> buffer(newSlots(room));
    if (!buffer)
        return withoutMemory();
    if (NAPI_ListAllProfile(buffer.get(), &count) < 0) {
        logPrint(support::LogError, "NAPI_ListAllProfile return error\n");
        return;
    }
    const QString base("Profile");
    const int highest = highestSuffix(buffer.get(), count < room ? count : room, base);
    name = base + QString::number(following(highest), 10);
}

} // namespace

void getDefaultProfileName(QString& name)
{
    support::withMemory([&name] { assignNextName(name); }, withoutMemory);
}
