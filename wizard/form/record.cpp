#include "wizard/form/record.h"

#include <string.h>

namespace wizard {

Record newRecord(const NetworkProfile* source)
{
    Record record(static_cast<NetworkProfile*>(malloc(sizeof(NetworkProfile))));
    if (record && source)
        memcpy(record.get(), source, sizeof *source);
    else if (record)
        memset(record.get(), 0, sizeof *record);
    return record;
}

} // namespace wizard
