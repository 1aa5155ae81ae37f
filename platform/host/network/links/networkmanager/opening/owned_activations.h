// The activations that this process has made: how many links each carries, and those that are going
// down.
#ifndef NETWORK_NETWORKMANAGER_OWNED_ACTIVATIONS_H
#define NETWORK_NETWORKMANAGER_OWNED_ACTIVATIONS_H

#include <map>
#include <string>

#include "network/links/networkmanager/opening/activation_host.h"

namespace network {

class OwnedActivations
{
public:
    // One link more. join() says whether the activation is ours, and changes nothing if not.
    void own(const OwnActivation& activation);
    const OwnActivation* findOn(const std::string& device) const;
    bool join(const std::string& active);

    // One link less; the last one takes the activation down.
    void leave(BusConnection& bus, const std::string& active);

    // An end that was asked for and not answered, of an activation that would stay without it.
    bool isAsking() const;

    // An activation that is going down keeps its device for as long.
    bool isGoingDown(const std::string& device) const;

    // True when an activation has gone down, and its device is free.
    bool activeChanged(const std::string& active, uint32_t state);
    bool deadlinePassed(Clock::time_point now);
    Clock::time_point nextDeadline() const;

    bool knows(const std::string& active) const { return m_all.count(active) != 0; }
    bool empty() const { return m_all.empty(); }
    void clear() { m_all.clear(); }

private:
    struct Activation
    {
        OwnActivation facts;
        int links = 0;
        Clock::time_point until = never; // while it goes down
        bool asking = false;
        BusSlot request;
    };

    std::map<std::string, Activation> m_all; // by path
};

} // namespace network

#endif
