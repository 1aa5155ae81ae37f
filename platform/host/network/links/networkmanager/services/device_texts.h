// What the services' numbers mean, in short words for people and for JSON.
#ifndef NETWORK_NETWORKMANAGER_DEVICE_TEXTS_H
#define NETWORK_NETWORKMANAGER_DEVICE_TEXTS_H

#include <cstdint>

#include "network/links/networkmanager/services/service_picture.h"

namespace network {

const char* deviceStateText(uint32_t state);       // "disconnected"
const char* technologyText(uint32_t technologies); // the best of them, "lte"; "" for none
const char* registrationText(uint32_t state);      // "home"
const char* simText(const ServiceModem& modem);    // "ready", "pin", "puk", "locked", "missing"

// Why a device carries no link, and what a person can do about it.
struct Hint
{
    const char* problem;
    const char* remedy;
};

Hint hintFor(const Cause& cause);
Hint hintForRoaming();
Hint hintForSim(const ServiceModem& modem); // of a SIM that is not ready

// Why NetworkManager could not be asked; `error` is an errno of the bus.
Hint hintForBus(int error);
Hint hintForService(const Cause& cause);

} // namespace network

#endif
