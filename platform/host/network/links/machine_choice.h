// Which of the machine's interfaces serves a profile.
#ifndef NETWORK_MACHINE_CHOICE_H
#define NETWORK_MACHINE_CHOICE_H

#include "network/links/bearer.h"
#include "network/links/machine_interfaces.h"

namespace network {

struct MachineChoice
{
    NapiCause cause = NAPI_CAUSE_NONE; // why there is none
    int detail = 0;                    // of NapiDetail
    Device device;
};

// The kinds of connection that the profile allows, best first: those of its preference, and packet
// data only with an access point name, a circuit-switched call only with a number.
std::vector<NapiBearerKind> allowedKinds(const NetworkProfile& record);

// Tries the allowed kinds one after the other; the cause is that of the last one tried. A kind's
// interface is the one that the configuration names, else that of the default route, else the
// loopback.
MachineChoice chooseInterface(const NetworkProfile& record, const NetworkConfig& config,
                              const Interfaces& interfaces);

} // namespace network

#endif
