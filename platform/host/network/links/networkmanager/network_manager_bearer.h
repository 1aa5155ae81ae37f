// Links over the connections of NetworkManager.
#ifndef NETWORK_NETWORKMANAGER_NETWORK_MANAGER_BEARER_H
#define NETWORK_NETWORKMANAGER_NETWORK_MANAGER_BEARER_H

#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "network/links/networkmanager/opening/interface_watch.h"
#include "network/links/networkmanager/opening/link_activation.h"
#include "network/links/networkmanager/opening/owned_activations.h"
#include "network/links/networkmanager/services/device_watches.h"
#include "network/links/networkmanager/services/signal_watch.h"

namespace network {

// On the bus from the first opening on, and half a minute longer than there is a link or something
// of one, so that the next opening finds it warm; nothing of it is loaded before. What it has
// activated ends with the process, however that ends.
class NetworkManagerBearer final : public Bearer, private ActivationHost
{
public:
    explicit NetworkManagerBearer(BearerListener& listener);

    // Reads from the disk what the first opening needs. Called from any thread, before open().
    static void prepare();

    int start() override;
    void stop() override;
    void open(const Opening& opening) override;
    void close(int link) override;
    void preferNameServers(int link) override;
    void forget() override;
    BearerDescriptors descriptors() const override;
    void descriptorReady() override;
    Clock::time_point nextDeadline() const override;
    void deadlinePassed(Clock::time_point now) override;

private:
    BusConnection& bus() override { return m_bus; }
    bool isTaken(const std::string& device) const override;
    void take(const std::string& device) override;
    void giveBack(const std::string& device) override;
    void own(const OwnActivation& activation) override;
    const OwnActivation* ownOn(const std::string& device) const override;
    bool join(const std::string& active) override;
    void leave(const std::string& active) override;
    DeviceWatch& watch(const ServiceDevice& device) override;
    ServicePicture freeDevices() const override { return m_watches.freeDevices(); }
    void listen(const std::string& path, const char* interface) override;
    void opened(int link, const Device& device) override;
    void failed(int link, const Cause& cause) override;
    void broken(int link) override;
    void step(int link, const std::string& text) override;

    template <typename Call> void forEach(Call call);
    int connect();
    void disconnect();
    void awaitAnswers();
    void work();
    void deviceTold(const std::string& path);
    void signalled(const std::string& path, BusMessage& signal);
    void ownerChanged(BusMessage& signal);
    void serviceGone();
    void busGone();
    void checkInterfaces(Clock::time_point now);
    void findLinksAgain(Clock::time_point now);
    void goOn();
    void sweep();
    bool isNamed(const std::string& path) const;
    bool isIdle() const;
    bool isAsking() const;

    BearerListener& m_listener;
    BusConnection m_bus;
    std::map<int, std::unique_ptr<LinkActivation>> m_links;
    std::vector<std::unique_ptr<LinkActivation>> m_lingering; // closed, with a request under way
    std::set<std::string> m_taken;                            // devices
    bool m_deviceFreed = false;
    OwnedActivations m_owned;
    SignalWatch m_signals;
    DeviceWatches m_watches;
    Clock::time_point m_leaveAt = never; // the bus, without a link
    BusSlot m_ownerWatch;
    InterfaceWatch m_interfaces;
    Clock::time_point m_findAgainAt = never;
    int m_searches = 0; // that are left
    Clock::time_point m_lookAt = never;
};

} // namespace network

#endif
