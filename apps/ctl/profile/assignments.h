// What the command line sets of a record.
#ifndef CTL_ASSIGNMENTS_H
#define CTL_ASSIGNMENTS_H

#include "line/request.h"
#include "napi.h"

namespace ctl {

// Applies the request's FIELD=VALUE assignments. Throws Failure (Exit::Usage) on an unknown field,
// one that is given twice, a value that does not fit, or a password that is not empty; the record
// may then be half changed. A word that may be a password given by mistake is not repeated.
void assign(const Request& request, NetworkProfile& record);

} // namespace ctl

#endif
