// Records whose passwords leave no copy in memory.
#ifndef NETWORK_FORGOTTEN_RECORD_H
#define NETWORK_FORGOTTEN_RECORD_H

#include <cstring>

#include "napi.h"

namespace network {

// Overwrites the passwords of a record.
inline void forgetPasswords(NetworkProfile* record)
{
    ::explicit_bzero(record->gprsPassword, sizeof record->gprsPassword);
    ::explicit_bzero(record->csdPassword, sizeof record->csdPassword);
}

// A record that forgets its passwords with its end.
struct ForgottenRecord : NetworkProfile
{
    ForgottenRecord() : NetworkProfile() {}
    ForgottenRecord(const NetworkProfile& record) : NetworkProfile(record) {}
    ~ForgottenRecord() { forgetPasswords(this); }
};

} // namespace network

#endif
