// Memory for one profile record.
#ifndef WIZARD_RECORD_H
#define WIZARD_RECORD_H

#include <stdlib.h>

#include <memory>

#include <napi.h>

namespace wizard {

// The platform's records are allocated with malloc, so they go back with free.
struct FreeRecord
{
    void operator()(NetworkProfile* record) const { free(record); }
};

typedef std::unique_ptr<NetworkProfile, FreeRecord> Record;

// A record of zeros, or a copy of `source` when that is not null; null when memory has run out.
Record newRecord(const NetworkProfile* source = nullptr);

} // namespace wizard

#endif
