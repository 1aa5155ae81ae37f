// An operator's access point put into a profile.
#ifndef CTL_OPERATOR_PROFILE_H
#define CTL_OPERATOR_PROFILE_H

#include "line/request.h"
#include "napi.h"

namespace ctl {

// Puts the access point that --operator, --from-sim and --plan choose into the record: its name,
// user, password and name servers. Does nothing for a request without them. Throws Failure:
// Exit::NoEntry when no operator or plan fits, or when no SIM card can be read, Exit::Usage when
// several fit (each is told with what to type), Exit::Input when the list cannot be used or an
// access point of it does not fit a profile.
void takeFromOperator(const Request& request, NetworkProfile& record);

} // namespace ctl

#endif
