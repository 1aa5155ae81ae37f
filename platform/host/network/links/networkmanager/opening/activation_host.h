// What one link asks of the bearer that all links share.
#ifndef NETWORK_NETWORKMANAGER_ACTIVATION_HOST_H
#define NETWORK_NETWORKMANAGER_ACTIVATION_HOST_H

#include <string>

#include "network/links/bearer.h"
#include "network/links/networkmanager/bus/bus_connection.h"
#include "network/links/networkmanager/services/cause_tables.h"
#include "network/links/networkmanager/services/device_watch.h"
#include "network/links/networkmanager/services/service_picture.h"

namespace network {

// An activation that this process has made.
struct OwnActivation
{
    std::string path;
    std::string device;
    std::string apn;
    bool bound = true; // it ends with our connection to the bus
};

class ActivationHost
{
public:
    virtual BusConnection& bus() = 0;

    // A device on which a request of ours is under way, or an activation of ours is going down,
    // takes no other one. Links that it has refused are told to go on once it is free.
    virtual bool isTaken(const std::string& device) const = 0;
    virtual void take(const std::string& device) = 0;
    virtual void giveBack(const std::string& device) = 0;

    // An activation of this process stays as long as a link of it takes part. own() is for the one
    // that made it, with the access point where there is one; ownOn() finds the one on a device or
    // null; join() says whether it is ours; leave() takes it down with the last.
    virtual void own(const OwnActivation& activation) = 0;
    virtual const OwnActivation* ownOn(const std::string& device) const = 0;
    virtual bool join(const std::string& active) = 0;
    virtual void leave(const std::string& active) = 0;

    // What is known of a device is kept current from here on, until no link names it any more;
    // changes are told to the links that do.
    virtual DeviceWatch& watch(const ServiceDevice& device) = 0;

    // The devices that can be activated without asking anybody what they are doing.
    virtual ServicePicture freeDevices() const = 0;

    // From here on the changes of state of an object are told to all links, until none of them
    // names it any more.
    virtual void listen(const std::string& path, const char* interface) = 0;

    // What becomes of the link. The caller is through with it then.
    virtual void opened(int link, const Device& device) = 0;
    virtual void failed(int link, const Cause& cause) = 0;
    virtual void broken(int link) = 0;

    // A step of the opening, for a person who watches.
    virtual void step(int link, const std::string& text) = 0;

protected:
    ~ActivationHost() = default;
};

} // namespace network

#endif
