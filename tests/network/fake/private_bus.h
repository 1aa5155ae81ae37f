// A message bus of the test's own, in the place of the machine's system bus.
#ifndef TESTS_PRIVATE_BUS_H
#define TESTS_PRIVATE_BUS_H

#include <string>

#include <sys/types.h>

namespace fakebus {

// The bus runs as long as the object. DBUS_SYSTEM_BUS_ADDRESS names it, also once it has ended: a
// program that asks then finds no bus.
class PrivateBus
{
public:
    // The folder takes the bus's socket.
    explicit PrivateBus(const std::string& folder);
    ~PrivateBus() { kill(); }
    PrivateBus(const PrivateBus&) = delete;
    PrivateBus& operator=(const PrivateBus&) = delete;

    const std::string& address() const { return m_address; }

    void kill();   // every connection to it ends at once
    void freeze(); // it neither answers nor hangs up
    void thaw();

private:
    std::string m_address;
    pid_t m_process = -1;
};

} // namespace fakebus

#endif
