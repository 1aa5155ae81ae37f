// What export writes and import reads.
#ifndef CTL_EXCHANGE_H
#define CTL_EXCHANGE_H

#include <string>
#include <vector>

#include "line/request.h"
#include "napi.h"
#include "profile/fields.h"

namespace ctl {

// The "format" of a file of exported profiles.
constexpr char exchangeFormat[] = "vorn-profiles";

struct ImportedProfile
{
    std::string name;
    NetworkProfile record;
    std::vector<const Field*> leftOut; // the passwords of which the file says nothing
};

// The profiles of a file of exported ones. Throws Failure (Exit::Input) with everything that is
// wrong in it, up to a hundred lines, and with more profiles than can be stored.
std::vector<ImportedProfile> readExchange(const Request& request, std::string bytes);

} // namespace ctl

#endif
