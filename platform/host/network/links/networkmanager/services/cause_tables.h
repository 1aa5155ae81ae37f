// From what the services say to the causes of napi.h.
#ifndef NETWORK_NETWORKMANAGER_CAUSE_TABLES_H
#define NETWORK_NETWORKMANAGER_CAUSE_TABLES_H

#include <cstdint>
#include <string>

#include "napi.h"

namespace network {

struct Cause
{
    NapiCause cause = NAPI_CAUSE_UNKNOWN;
    int detail = 0;
};

// An errno as the reason.
Cause causeOfErrno(NapiCause cause, int error);

// An errno with which a call could not be sent: the bus has gone, or else `cause`.
Cause causeOfSending(NapiCause cause, int error);

// The reason of a device's state at NetworkManager. Numbers that are not known here are told, too.
Cause causeOfReason(uint32_t reason);

// The error of a call to NetworkManager.
Cause causeOfCallError(const std::string& name);

// The error of ModemManager's bearer, "org.freedesktop.ModemManager1.Error.MobileEquipment.SimPin".
// What says nothing has the cause NAPI_CAUSE_UNKNOWN and no detail.
Cause causeOfModemError(const std::string& name);

} // namespace network

#endif
