// One link over NetworkManager, from the question which devices there are to its end.
#ifndef NETWORK_NETWORKMANAGER_LINK_ACTIVATION_H
#define NETWORK_NETWORKMANAGER_LINK_ACTIVATION_H

#include <string>
#include <vector>

#include "network/links/networkmanager/opening/activation_host.h"
#include "network/links/networkmanager/opening/name_server_request.h"
#include "network/links/networkmanager/services/device_choice.h"
#include "network/links/networkmanager/services/modem_bearers.h"
#include "network/links/networkmanager/services/service_listing.h"

namespace network {

// The steps of an opening, and the deadline of each; the guard is the configured time for the kind
// of connection.
//
// | step | waits for | ends after |
// |---|---|---|
// | Listing | what the services say about the machine | reply |
// | Comparing | the connection of a device that is up | reply |
// | Waiting | a device on which another link of ours is at work | guard |
// | Requested | the answer to the activation | guard |
// | Dialling | the device to come up; for a PIN or a password no longer than `secret` | guard |
// | Addressing | an address of a device that has come up | 1 s |
// | Asking | the modem's reason for a failure | 50 ms, and 1 s without an answer |
class LinkActivation
{
public:
    enum class Step {
        Listing,
        Comparing,
        Waiting,
        Requested,
        Dialling,
        Addressing,
        Asking,
        Up,
        Done
    };

    // `owner` is the name of the user whom the connections belong to, or "" for everybody.
    LinkActivation(ActivationHost& host, const Opening& opening, const std::string& owner);
    ~LinkActivation();
    LinkActivation(const LinkActivation&) = delete;
    LinkActivation& operator=(const LinkActivation&) = delete;

    void begin();

    // Ends the link without a word. One whose activation has been asked for and not been answered,
    // or that a restarted service has not found again, has to live on until its step is Done.
    void close();

    Step step() const { return m_step; }
    int link() const { return m_opening.link; }
    const std::string& devicePath() const { return m_choice.device.path; }
    const std::string& activePath() const { return m_active; }
    const Device& device() const { return m_device; }
    Clock::time_point deadline() const { return m_deadline; }

    void deadlinePassed();
    void deviceIsFree(); // while Waiting
    // Has asked for a connection that would stay without us, and has no answer yet.
    bool isAsking() const
    {
        return m_step == Step::Requested && m_choice.way == DeviceChoice::Way::Known;
    }
    bool isUp() const { return m_step == Step::Up; }
    bool isClosed() const { return m_closed; } // nobody wants to hear of it any more
    bool isLost() const { return m_step == Step::Up && m_active.empty(); } // by a service's end
    void deviceChanged(const std::string& path, uint32_t state, uint32_t old, uint32_t reason);
    void activeChanged(const std::string& path, uint32_t state);
    void deviceTold();             // what is known of the device has changed
    void serviceGone();            // before it is up
    void lose(const Cause& cause); // ends it, whatever it is doing
    void interfaceGone();          // while Up

    // While Up: makes the link's name servers the machine's first ones, where the connection is
    // ours; one that is shared is not touched. A modem's servers stay behind those of the other
    // connections, if there are any: NetworkManager takes the address away from a modem whose
    // connection is changed.
    void preferNameServers();

    // While Up: the service has come back, and knows the link under other paths.
    void findAgain();

private:
    bool recall();
    void list();
    void askServices();
    void listed(const ServicePicture& picture);
    void choose();
    void refuse(const Cause& cause);
    void compare();
    void compared(BusMessage& reply);
    void joinOwn();
    void joinActive();
    void activate();
    void answered(BusMessage& reply);
    void refusedByService(BusMessage& reply);
    void dialled(const std::string& active);
    void askState();
    void secretNeeded();
    void readBearers();
    void checkBearers(const std::vector<ModemBearer>& bearers);
    void takeAddress();
    void comeUp();
    void giveUp();
    void replaced();
    void ended(uint32_t reason);
    void askWhy();
    void explain(const std::vector<ModemBearer>& bearers);
    void found(const ServicePicture& picture);
    void hangUp();
    void detach();
    void finish();
    void wait(Step step, Clock::duration time);
    void guard(Step step);
    bool cellular() const { return m_kind == NAPI_BEARER_GPRS; }
    void say(const std::string& text) { m_host.step(m_opening.link, text); }

    ActivationHost& m_host;
    Opening m_opening;
    const std::string m_owner;
    Step m_step = Step::Listing;
    Clock::time_point m_deadline = never;
    Clock::time_point m_guard = never;   // of the kind that is being tried
    std::vector<NapiBearerKind> m_kinds; // those that are left to try
    NapiBearerKind m_kind = NAPI_BEARER_UNKNOWN;
    Cause m_cause = {NAPI_CAUSE_NO_BEARER, 0}; // of the last kind tried
    DeviceChoice m_choice;
    std::string m_active;     // path of the activation
    bool m_takesPart = false; // in an activation of this process
    bool m_recalled = false;  // the device was chosen without asking
    bool m_closed = false;
    // A modem stays connected when NetworkManager restarts, and is free for it then.
    bool m_leftConnected = false;
    bool m_begun = false;          // what the device does is about our activation
    bool m_begunElsewhere = false; // of an activation that is joined
    bool m_activated = false;
    bool m_checking = false;
    bool m_checked = false; // the access point is the profile's
    bool m_needsSecret = false;
    int m_replacements = 0; // of our activation by somebody else's
    Clock::time_point m_askUntil = never;
    uint32_t m_reason = 1; // of the device's last state; 1 is unknown
    Cause m_lastCause;
    Device m_device;
    ModemBearers m_bearers;
    NameServerRequest m_nameServers;
    ServiceListing m_listing;
    BusSlot m_comparison, m_request, m_state;
};

} // namespace network

#endif
