// Profiles of a file into the store.
#ifndef COMMON_PROFILE_IMPORT_H
#define COMMON_PROFILE_IMPORT_H

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "exchange/exchange_file.h"

namespace ctl {

// A file larger than this is not one of exported profiles.
constexpr std::size_t largestExchangeFile = 64U << 20;

// Whether each of the profiles is stored already. Throws Failure for what the store would refuse:
// Exit::NoRoom, and Exit::Exists unless stored profiles are replaced. `file` is how messages call
// what is imported.
std::vector<bool> checkAgainstStore(const std::string& file, bool replaces,
                                    const std::vector<ImportedProfile>& profiles);

// Stores the profiles, replacing those that checkAgainstStore() has found; one that replaces keeps
// the passwords of which its file says nothing. Asks `goesOn`, with how many are stored, before
// each and ends where it says no. Result: how many were stored. Throws Failure, whose advice says
// how many were stored before.
std::size_t storeProfiles(std::vector<ImportedProfile>& profiles, const std::vector<bool>& stored,
                          const std::function<bool(std::size_t stored)>& goesOn = {});

} // namespace ctl

#endif
