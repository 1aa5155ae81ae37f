#include "network/links/fake_kernel.h"

#include <cerrno>
#include <cstring>
#include <list>
#include <map>
#include <memory>
#include <mutex>

#include <arpa/inet.h>
#include <dlfcn.h>
#include <ifaddrs.h>
#include <linux/netlink.h>
#include <net/if.h>
#include <netinet/in.h>
#include <netpacket/packet.h>
#include <sys/socket.h>
#include <unistd.h>

#include "network/links/failing_memory.h"

namespace {

struct FakeInterface
{
    unsigned flags = IFF_UP;
    std::list<std::string> addresses;
};

// One answer of getifaddrs, with everything that its entries point to.
struct Listing
{
    std::list<std::string> names;
    std::list<sockaddr_in> addresses;
    sockaddr_ll packet = {};
    std::list<ifaddrs> entries;

    void add(const std::string& name, unsigned flags, sockaddr* address)
    {
        names.push_back(name);
        ifaddrs entry = {};
        entry.ifa_name = names.back().data();
        entry.ifa_flags = flags;
        entry.ifa_addr = address;
        entries.push_back(entry);
        if (entries.size() > 1)
            std::prev(entries.end(), 2)->ifa_next = &entries.back();
    }
};

std::mutex mutex; // for all of the following
bool active = false;
int refusal = 0;
bool overran = false;
int newsEnd = -1;   // of the netlink socket: the kernel's,
int readerEnd = -1; // and libnapi's
std::map<std::string, FakeInterface> interfaces;
std::map<ifaddrs*, std::unique_ptr<Listing>> listings;

using Guard = std::lock_guard<std::mutex>;

constexpr char fromTheKernel = 'k', fromAProcess = 'p';

void tellChange(char sender = fromTheKernel)
{
    if (newsEnd >= 0)
        send(newsEnd, &sender, 1, MSG_DONTWAIT | MSG_NOSIGNAL);
}

ifaddrs* list()
{
    auto listing = std::make_unique<Listing>();
    listing->packet.sll_family = AF_PACKET;
    for (const auto& [name, interface] : interfaces) {
        listing->add(name, interface.flags, reinterpret_cast<sockaddr*>(&listing->packet));
        for (const std::string& text : interface.addresses) {
            sockaddr_in address = {};
            address.sin_family = AF_INET;
            inet_pton(AF_INET, text.c_str(), &address.sin_addr);
            listing->addresses.push_back(address);
            listing->add(name, interface.flags,
                         reinterpret_cast<sockaddr*>(&listing->addresses.back()));
        }
    }
    ifaddrs* first = listing->entries.empty() ? nullptr : &listing->entries.front();
    listings[first] = std::move(listing);
    return first;
}

template <typename Function> Function* real(const char* name)
{
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

} // namespace

// The calls of libnapi arrive here, because a program's own symbols come before those of libraries.
#define IN_THE_PLACE_OF_LIBC extern "C" __attribute__((visibility("default")))

IN_THE_PLACE_OF_LIBC int getifaddrs(ifaddrs** result) noexcept
{
    Guard guard(mutex);
    if (!active)
        return real<int(ifaddrs**)>("getifaddrs")(result);
    linktest::SparedThread spared;
    errno = refusal;
    if (refusal == 0)
        *result = list();
    return refusal == 0 ? 0 : -1;
}

IN_THE_PLACE_OF_LIBC void freeifaddrs(ifaddrs* result) noexcept
{
    Guard guard(mutex);
    if (listings.erase(result) == 0)
        real<void(ifaddrs*)>("freeifaddrs")(result);
}

IN_THE_PLACE_OF_LIBC int socket(int family, int type, int protocol) noexcept
{
    Guard guard(mutex);
    if (!active || family != AF_NETLINK)
        return real<int(int, int, int)>("socket")(family, type, protocol);
    // The one that waits for nothing is for news; the other one would ask for the routes.
    int ends[2];
    errno = EAFNOSUPPORT;
    if (!(type & SOCK_NONBLOCK) || socketpair(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0, ends) != 0)
        return -1;
    if (newsEnd >= 0)
        close(newsEnd);
    newsEnd = ends[0];
    return readerEnd = ends[1];
}

IN_THE_PLACE_OF_LIBC int bind(int descriptor, const sockaddr* address, socklen_t size) noexcept
{
    Guard guard(mutex);
    if (active && descriptor == readerEnd)
        return 0;
    return real<int(int, const sockaddr*, socklen_t)>("bind")(descriptor, address, size);
}

using ReceiveFrom = ssize_t(int, void*, std::size_t, int, sockaddr*, socklen_t*);

IN_THE_PLACE_OF_LIBC ssize_t recvfrom(int descriptor, void* buffer, std::size_t size, int flags,
                                      sockaddr* sender, socklen_t* length)
{
    Guard guard(mutex);
    const ssize_t got =
        real<ReceiveFrom>("recvfrom")(descriptor, buffer, size, flags, sender, length);
    if (!active || descriptor != readerEnd)
        return got;
    if (overran) {
        // What the socket held is lost with what it could not hold.
        overran = false;
        errno = ENOBUFS;
        return -1;
    }
    if (got > 0) {
        sockaddr_nl address = {};
        address.nl_family = AF_NETLINK;
        address.nl_pid = *static_cast<const char*>(buffer) == fromAProcess ? 4711 : 0;
        std::memcpy(sender, &address, sizeof address);
        *length = sizeof address;
    }
    return got;
}

namespace linktest {

FakeKernel::FakeKernel()
{
    Guard guard(mutex);
    active = true;
    refusal = 0;
    interfaces = {{"lo", {IFF_UP | IFF_LOOPBACK, {"127.0.0.1"}}}};
}

FakeKernel::~FakeKernel()
{
    Guard guard(mutex);
    active = false;
    if (newsEnd >= 0)
        close(newsEnd);
    newsEnd = readerEnd = -1;
}

void FakeKernel::add(const std::string& device, const std::string& address)
{
    Guard guard(mutex);
    FakeInterface& added = interfaces[device];
    if (!address.empty())
        added.addresses.push_back(address);
    tellChange();
}

void FakeKernel::setDown(const std::string& device)
{
    Guard guard(mutex);
    interfaces[device].flags &= ~static_cast<unsigned>(IFF_UP);
    tellChange();
}

void FakeKernel::removeAddress(const std::string& device, const std::string& address)
{
    Guard guard(mutex);
    interfaces[device].addresses.remove(address);
    tellChange();
}

void FakeKernel::remove(const std::string& device)
{
    Guard guard(mutex);
    interfaces.erase(device);
    tellChange();
}

void FakeKernel::pretendNews(const std::string& device)
{
    Guard guard(mutex);
    interfaces.erase(device);
    tellChange(fromAProcess);
}

void FakeKernel::tellNews()
{
    Guard guard(mutex);
    tellChange();
}

void FakeKernel::loseNews(const std::string& device)
{
    Guard guard(mutex);
    interfaces.erase(device);
    overran = true;
    tellChange();
}

void FakeKernel::refuse(int error)
{
    Guard guard(mutex);
    refusal = error;
}

} // namespace linktest
