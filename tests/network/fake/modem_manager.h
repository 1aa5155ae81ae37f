// ModemManager as a test wants it to be: one modem, registered, with one bearer.
#ifndef TESTS_FAKE_MODEM_MANAGER_H
#define TESTS_FAKE_MODEM_MANAGER_H

#include "network/fake/objects.h"

namespace fakebus {

inline const char* const modemPath = "/org/freedesktop/ModemManager1/Modem/0";
inline const char* const bearerPath = "/org/freedesktop/ModemManager1/Bearer/0";

class ModemManager
{
public:
    ModemManager();

    Service service;

    // What the modem says of the last call that failed: the name behind
    // "org.freedesktop.ModemManager1.Error.", or "" for none, told by a signal.
    void connectionError(const std::string& name, const std::string& text = "told by the network");

    // The bearer is up, with this access point.
    void accessPoint(const std::string& name);
};

} // namespace fakebus

#endif
