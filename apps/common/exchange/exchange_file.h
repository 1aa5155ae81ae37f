// What export writes and import reads.
#ifndef COMMON_EXCHANGE_FILE_H
#define COMMON_EXCHANGE_FILE_H

#include <string>
#include <vector>

#include "napi.h"
#include "output.h"
#include "profile/fields.h"

namespace ctl {

// The "format" of a file of exported profiles.
constexpr char exchangeFormat[] = "vorn-profiles";

// The bytes of a file of exported profiles, each as exported() gives it.
std::string exchangeText(const Json& profiles);

struct ImportedProfile
{
    std::string name;
    NetworkProfile record;
    std::vector<const Field*> leftOut; // the passwords of which the file says nothing
};

// The profiles of the bytes of a file of exported ones; `file` is how messages call it. With
// `takesAnyName` the name of a profile may be any text, since another one replaces it. Throws
// Failure (Exit::Input) with everything that is wrong in it, up to a hundred lines, and with more
// profiles than can be stored.
std::vector<ImportedProfile> readExchange(const std::string& file, bool takesAnyName,
                                          std::string bytes);

} // namespace ctl

#endif
