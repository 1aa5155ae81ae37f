// What carries links: one class for each way to open one.
#ifndef NETWORK_BEARER_H
#define NETWORK_BEARER_H

#include <array>
#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include <poll.h>

#include "napi.h"
#include "network/forgotten_record.h"
#include "network/network_config.h"

namespace network {

using Clock = std::chrono::steady_clock;
inline constexpr Clock::time_point never = Clock::time_point::max();

// What a bearer is asked to open.
struct Opening
{
    int link = -1;
    std::string profile;
    ForgottenRecord record;
    std::shared_ptr<const NetworkConfig> config; // as it was when the opening began
};

// The network device of a link that is up.
struct Device
{
    std::string name;     // 1 to 15 bytes
    uint32_t address = 0; // IPv4, first octet in the most significant byte
    NapiBearerKind kind = NAPI_BEARER_UNKNOWN;
    std::vector<std::string> nameServers; // those that the network gave, in text form
};

// Hears from a bearer what becomes of its links.
class BearerListener
{
public:
    virtual void linkUp(int link, Device device) = 0;
    virtual void linkFailed(int link, NapiCause cause, int detail) = 0;
    virtual void linkBroken(int link) = 0;

protected:
    ~BearerListener() = default;
};

using BearerDescriptors = std::array<pollfd, 2>;

// All calls are made one at a time, and none of them blocks. The listener is told from within open,
// descriptorReady and deadlinePassed only. After close nothing more is told about that link. Where
// memory is short, open may throw std::bad_alloc, and the link is then given up; descriptorReady
// and deadlinePassed throw nothing.
class Bearer
{
public:
    virtual ~Bearer() = default;

    // Begins to watch the links that are up, and says at the next deadlinePassed which of them have
    // gone meanwhile. Result: 0, or an errno when the process has no descriptor left.
    virtual int start() { return 0; }

    // Ends watching and releases all descriptors. Links stay as they are.
    virtual void stop() {}

    // Opens a link: answers with one linkUp or linkFailed, at once or later or, as networks do,
    // never.
    virtual void open(const Opening& opening) = 0;

    // Gives up an opening, or closes a link that is up.
    virtual void close(int link) = 0;

    // Makes the name servers of a link that is up the first ones of the machine's resolver, where
    // the bearer has a say in it.
    virtual void preferNameServers(int /*link*/) {}

    // Has a link that is up break at the next deadlinePassed, where the bearer only plays links.
    // False where it does not.
    virtual bool playBreak(int /*link*/) { return false; }

    // In a forked child, which has the memory and the descriptors of its parent: lets go of what
    // speaks for the parent, without a word to anybody. The links are closed after it.
    virtual void forget() {}

    // What to wait for, with -1 in place of a descriptor for nothing.
    virtual BearerDescriptors descriptors() const { return {{{-1, 0, 0}, {-1, 0, 0}}}; }
    virtual void descriptorReady() {}

    // When deadlinePassed is to be called next.
    virtual Clock::time_point nextDeadline() const { return never; }
    virtual void deadlinePassed(Clock::time_point /*now*/) {}
};

} // namespace network

#endif
