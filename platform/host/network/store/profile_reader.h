// Reading the stored profiles. Readers take no lock and never wait: each profile's record is
// replaced in one step, so they find the old one or the new one.
#ifndef NETWORK_PROFILE_READER_H
#define NETWORK_PROFILE_READER_H

#include <string>
#include <vector>

#include "napi.h"

namespace store {

// The names of all usable profiles, sorted byte by byte. Results as NAPI_ListAllProfile.
int listProfiles(std::vector<std::string>* names);

// Results as NAPI_ReadProfile; `name` is a profile name.
int readProfile(const std::string& name, NetworkProfile* out);

// Results as NAPI_IsProfileValid; `name` is a profile name.
int checkProfile(const std::string& name);

} // namespace store

#endif
