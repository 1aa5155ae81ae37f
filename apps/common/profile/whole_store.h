// The profile store as a whole: what is said of all profiles, though some of them cannot be used.
#ifndef COMMON_WHOLE_STORE_H
#define COMMON_WHOLE_STORE_H

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "napi.h"

namespace ctl {

// A profile that is listed but could not be read.
struct Unread
{
    std::string name;
    int result; // of the network API
};

// Gives each profile of these names to `use`; the ones that could not be read. One that is gone by
// now is left out.
std::vector<Unread>
readEach(const std::vector<std::string>& names,
         const std::function<void(const std::string&, const NetworkProfile&)>& use);

// How many profiles count for the limit: usable ones and damaged ones.
std::size_t countProfiles();

// How many entries of the store are not among its `listed` profiles, being damaged or foreign.
std::size_t countUnlisted(std::size_t listed);

// Throws the Failure of profiles that could not be read, with the exit status of the first; returns
// when there are none. Call it when everything else has been done.
void failUnread(const std::vector<Unread>& unread);

} // namespace ctl

#endif
