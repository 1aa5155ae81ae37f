// What the tests over the fake services stand on.
#ifndef TESTS_FAKE_TEST_H
#define TESTS_FAKE_TEST_H

#include <chrono>
#include <memory>

#include "network/fake/modem_manager.h"
#include "network/fake/network_manager.h"
#include "network/fake/private_bus.h"
#include "network/links/fake_kernel.h"
#include "network/links/link_world.h"

namespace fakebus {

using Milliseconds = std::chrono::milliseconds;

// The messages of a link over the fake modem.
linktest::Message connectedHere(int link);
linktest::Message brokenHere(int link);

// A root with the bearer "networkmanager" and the profile "Home", a bus, and both services on it.
// The services answer while a test waits in one of the calls below, and at no other time. At the
// end all links are closed, and no activation may be left on the service.
class FakeTest : public linktest::LinkTest
{
protected:
    void SetUp() override;
    void TearDown() override;

    // The next message; without one the test fails.
    linktest::Message next(linktest::Receiver& receiver);

    // The next message within a time, or none.
    std::optional<linktest::Message> within(Milliseconds time, linktest::Receiver& receiver);

    // Lets the services work until the condition holds, or the time is over. Result: whether it
    // does.
    bool until(const std::function<bool()>& condition, Milliseconds time = Milliseconds(5000));

    // The same for a time in which nothing is expected to come.
    void rest(Milliseconds time = Milliseconds(50));

    // NetworkManager ends and starts again, with none of its connections.
    void restartNetworkManager();

    // Opens a link that connects, and takes its message. Result: its id.
    int up(linktest::Receiver& receiver, const char* profile = "Home");

    std::unique_ptr<linktest::FakeKernel> kernel; // has the link's interface
    std::unique_ptr<PrivateBus> bus;
    std::unique_ptr<NetworkManager> nm;
    std::unique_ptr<ModemManager> mm;

private:
    void workUntil(std::chrono::steady_clock::time_point end, int alsoReadable);
};

} // namespace fakebus

#endif
