#include "network/fake/fake_test.h"

#include <poll.h>

using namespace linktest;
using std::chrono::steady_clock;

namespace fakebus {

Message connectedHere(int link)
{
    return connected(link, "hso0", 0x0A630002, NAPI_BEARER_GPRS);
}

Message brokenHere(int link)
{
    return broken(link, "hso0", 0x0A630002, NAPI_BEARER_GPRS);
}

void FakeTest::SetUp()
{
    LinkTest::SetUp();
    configure(R"({"bearer": "networkmanager"})");
    store("Home");
    kernel = std::make_unique<FakeKernel>();
    kernel->add("hso0", "10.99.0.2");
    bus = std::make_unique<PrivateBus>(root());
    nm = std::make_unique<NetworkManager>();
    mm = std::make_unique<ModemManager>();
}

void FakeTest::TearDown()
{
    {
        Receiver last;
        for (int link = 0; link < NAPI_MAX_LINKS; ++link)
            NAPI_CloseLink(link);
        if (nm && nm->service.isThere()) {
            EXPECT_TRUE(until([this] { return nm->living() == 0; }))
                << nm->living() << " connections are left on the service, which was asked for "
                << nm->service.countOf("AddAndActivateConnection2") << " and was told to end "
                << nm->service.countOf("DeactivateConnection");
        }
    }
    mm.reset();
    nm.reset();
    bus.reset();
    kernel.reset();
    LinkTest::TearDown();
}

// One round: answers what is there, then waits for more, a message included.
void FakeTest::workUntil(steady_clock::time_point end, int alsoReadable)
{
    if (nm)
        nm->service.work();
    if (mm)
        mm->service.work();
    pollfd descriptors[] = {{nm ? nm->service.descriptor() : -1, POLLIN, 0},
                            {mm ? mm->service.descriptor() : -1, POLLIN, 0},
                            {alsoReadable, POLLIN, 0}};
    auto left = std::chrono::ceil<Milliseconds>(end - steady_clock::now()).count();
    poll(descriptors, 3, static_cast<int>(std::max<long long>(left, 0)));
}

std::optional<Message> FakeTest::within(Milliseconds time, Receiver& receiver)
{
    auto end = steady_clock::now() + time;
    for (;;) {
        if (auto message = receiver.ready())
            return message;
        if (steady_clock::now() >= end)
            return {};
        workUntil(end, receiver.socket());
    }
}

Message FakeTest::next(Receiver& receiver)
{
    if (auto message = within(Milliseconds(30000), receiver))
        return *message;
    ADD_FAILURE() << "no message";
    return {};
}

bool FakeTest::until(const std::function<bool()>& condition, Milliseconds time)
{
    auto end = steady_clock::now() + time;
    while (!condition()) {
        if (steady_clock::now() >= end)
            return false;
        // A condition may be about the process itself, of which no descriptor tells.
        workUntil(std::min(end, steady_clock::now() + Milliseconds(10)), -1);
    }
    return true;
}

void FakeTest::rest(Milliseconds time)
{
    until([] { return false; }, time);
}

void FakeTest::restartNetworkManager()
{
    // The name on the bus has room for one.
    nm.reset();
    nm = std::make_unique<NetworkManager>();
}

int FakeTest::up(Receiver& receiver, const char* profile)
{
    int link = NAPI_OpenLink(profile);
    EXPECT_EQ(next(receiver).type, NAPI_IND_CONNECTED);
    return link;
}

} // namespace fakebus
