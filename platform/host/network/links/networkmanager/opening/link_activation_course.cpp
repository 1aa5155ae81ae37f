// What becomes of an activation that is under way: addresses, failures, the end.
#include <algorithm>
#include <cerrno>
#include <iterator>

#include "network/links/networkmanager/opening/link_activation.h"
#include "network/links/networkmanager/opening/profile_connection.h"
#include "network/links/networkmanager/services/device_texts.h"
#include "network/links/networkmanager/services/service_names.h"

namespace network {

// Addresses follow the activation within milliseconds, if at all.
constexpr auto addressPatience = std::chrono::seconds(1);
constexpr auto addressPause = std::chrono::milliseconds(50);

// The modem's reason may follow the failure.
constexpr auto reasonPatience = std::chrono::milliseconds(50);
constexpr auto reasonPause = std::chrono::milliseconds(10);
constexpr auto answerPatience = std::chrono::seconds(1); // of a machine that is busy

// How long an activation that nobody wants any more may still be answered.
constexpr auto linger = std::chrono::seconds(60);

constexpr uint32_t newActivation = 60;

// Somebody who wants the device again and again gets it.
constexpr int replacements = 3;

namespace {

// States that nobody knows say nothing.
bool hasEnded(uint32_t state)
{
    constexpr uint32_t ends[] = {nm::Unmanaged, nm::Unavailable, nm::Disconnected, nm::Deactivating,
                                 nm::Failed};
    return std::find(std::begin(ends), std::end(ends), state) != std::end(ends);
}

} // namespace

void LinkActivation::deviceChanged(const std::string& path, uint32_t state, uint32_t old,
                                   uint32_t reason)
{
    if (path != m_choice.device.path || m_step == Step::Done)
        return;
    // Until the device prepares itself, what it does is the end of what it did before.
    m_begun = m_begun || state == nm::Prepare;
    bool running = m_step == Step::Requested || m_step == Step::Dialling ||
                   m_step == Step::Addressing || m_step == Step::Up;
    if (!m_begun || !running)
        return;
    say(std::string("device state ") + deviceStateText(state) +
        (reason == 0 ? "" : ", reason " + std::to_string(reason)));
    if (hasEnded(state))
        return ended(reason);
    if (m_step == Step::Up)
        return;
    if (state == nm::NeedAuth)
        return secretNeeded();
    if (old == nm::NeedAuth)
        m_deadline = m_guard;
    if (state == nm::IpConfig && cellular())
        readBearers();
}

// A PIN or a password that nobody gives would be waited for without end.
void LinkActivation::secretNeeded()
{
    Clock::time_point until = Clock::now() + m_opening.config->guards.secret;
    m_deadline = std::min(m_guard, until);
    m_needsSecret = true;
}

void LinkActivation::activeChanged(const std::string& path, uint32_t state)
{
    bool running = m_step == Step::Dialling || m_step == Step::Addressing || m_step == Step::Up;
    if (path != m_active || !running)
        return;
    if (state == nm::ActiveGone)
        return ended(m_reason);
    if (state != nm::ActiveUp || m_activated)
        return;
    m_activated = true;
    m_guard = std::min(m_guard, Clock::now() + addressPatience);
    wait(Step::Addressing, addressPause);
    if (cellular())
        readBearers();
    takeAddress();
}

// The modem service knows first that the modem is connected, and through which access point.
void LinkActivation::deviceTold()
{
    bool connected = cellular() && m_host.watch(m_choice.device).isModemConnected();
    if (m_step == Step::Dialling && m_begun && connected)
        readBearers();
    takeAddress();
}

void LinkActivation::readBearers()
{
    if (m_checked || m_checking)
        return;
    m_checking = true;
    auto done = [this](const std::vector<ModemBearer>& bearers) { checkBearers(bearers); };
    m_bearers.start(m_host.bus(), m_choice.device.modem, done);
}

// A modem service may fall back to another access point than it was asked for, which costs money. A
// service that does not tell, even when the device is up, is believed.
void LinkActivation::checkBearers(const std::vector<ModemBearer>& bearers)
{
    m_checking = false;
    bool told = false, same = false;
    for (const ModemBearer& bearer : bearers) {
        if (!bearer.connected || bearer.apn.empty())
            continue;
        told = true;
        same = same || sameAccessPoint(bearer.apn, fieldText(m_opening.record.gprsApn));
    }
    constexpr uint32_t accessPointFailed = 29;
    if (told && !same)
        return lose({NAPI_CAUSE_SUBSCRIPTION, causeOfReason(accessPointFailed).detail});
    m_checked = told || m_activated;
    comeUp();
}

void LinkActivation::takeAddress()
{
    if (m_step != Step::Addressing)
        return;
    const ServiceAddress& address = m_host.watch(m_choice.device).address();
    if (!address.complete())
        return;
    m_device.name = address.interface;
    m_device.address = address.address;
    m_device.nameServers = address.nameServers;
    m_device.kind = m_kind;
    comeUp();
}

// The three answers come in any order.
void LinkActivation::comeUp()
{
    bool checked = m_checked || !cellular();
    if (m_step != Step::Addressing || m_device.address == 0 || !checked)
        return;
    m_step = Step::Up;
    m_deadline = never;
    forgetPasswords(&m_opening.record);
    m_listing.clear();
    m_host.opened(m_opening.link, m_device);
}

void LinkActivation::deadlinePassed()
{
    m_deadline = never;
    bool addressing = m_step == Step::Addressing;
    if (addressing && Clock::now() < m_guard) {
        m_host.watch(m_choice.device).ask();
        return wait(Step::Addressing, addressPause);
    }
    if (addressing && !m_device.address)
        return refuse(causeOfErrno(NAPI_CAUSE_NO_ADDRESS, EADDRNOTAVAIL));
    if (addressing) { // the modem service does not say which access point it uses
        m_checked = true;
        return comeUp();
    }
    if (m_step == Step::Asking)
        return Clock::now() < m_askUntil ? askWhy() : refuse(m_lastCause);
    if (m_step == Step::Requested)
        return giveUp();
    if (m_step == Step::Up) // closed, and the service has not found it again
        return finish();
    constexpr uint32_t noSecrets = 7, pinRequired = 46;
    if (m_step == Step::Dialling && m_needsSecret && Clock::now() < m_guard)
        return refuse(causeOfReason(cellular() ? pinRequired : noSecrets));
    refuse({NAPI_CAUSE_TIMEOUT, 0});
}

// The service may still take the request; what it makes of it is taken down then.
void LinkActivation::giveUp()
{
    if (m_closed)
        return finish();
    close();
    m_host.failed(m_opening.link, {NAPI_CAUSE_TIMEOUT, 0});
}

void LinkActivation::ended(uint32_t reason)
{
    if (reason > nm::unknownReason)
        m_reason = reason;
    if (m_step == Step::Requested)
        return; // the answer to the request is still to come, and the state is asked for then
    if (m_step == Step::Up)
        return interfaceGone();
    if (m_reason == newActivation)
        return replaced();
    m_lastCause = causeOfReason(m_reason);
    bool vague = m_lastCause.cause == NAPI_CAUSE_UNKNOWN || m_lastCause.cause == NAPI_CAUSE_MODEM;
    if (!cellular() || !vague)
        return refuse(m_lastCause);
    m_askUntil = Clock::now() + reasonPatience;
    askWhy();
}

// Somebody else has activated something on the device; it may serve this link, too.
void LinkActivation::replaced()
{
    say("another activation has taken the device");
    m_cause = causeOfReason(m_reason);
    if (++m_replacements > replacements)
        return refuse(m_cause);
    detach();
    list();
}

void LinkActivation::askWhy()
{
    wait(Step::Asking, answerPatience);
    auto done = [this](const std::vector<ModemBearer>& bearers) { explain(bearers); };
    m_bearers.start(m_host.bus(), m_choice.device.modem, done);
}

// The modem's own reason is better than the service's; without one, the service's is told when the
// patience has ended.
void LinkActivation::explain(const std::vector<ModemBearer>& bearers)
{
    if (m_step != Step::Asking)
        return;
    for (const ModemBearer& bearer : bearers) {
        Cause told = causeOfModemError(bearer.error);
        if (told.cause == NAPI_CAUSE_UNKNOWN)
            continue;
        say("ModemManager says " + bearer.error);
        if (told.detail == 0)
            told.detail = m_lastCause.detail;
        return refuse(told);
    }
    if (bearers.empty())
        return refuse(m_lastCause);
    m_deadline = Clock::now() + reasonPause;
}

// A link that is up stays, as the interface does. The service will have other paths when it comes
// back, and use the same names for them.
void LinkActivation::serviceGone()
{
    if (m_step == Step::Up) {
        m_active.clear();
        m_choice.device.path.clear();
    } else if (m_closed) {
        finish();
    } else if (m_step != Step::Done) {
        lose({NAPI_CAUSE_NO_SERVICE_DAEMON, 0});
    }
}

void LinkActivation::interfaceGone()
{
    int link = m_opening.link;
    bool told = m_closed;
    finish();
    if (!told)
        m_host.broken(link);
}

void LinkActivation::lose(const Cause& cause)
{
    // An answer may still come to a question of an opening that has ended meanwhile.
    if (m_step == Step::Done)
        return;
    int link = m_opening.link;
    finish();
    m_host.failed(link, cause);
}

void LinkActivation::close()
{
    m_closed = true;
    bool lost = isLost() && m_takesPart && m_host.bus().isOpen();
    if (lost && m_leftConnected)
        hangUp();
    else if (m_step == Step::Requested || lost)
        wait(m_step, linger);
    else
        finish();
}

void LinkActivation::finish()
{
    detach();
    m_step = Step::Done;
    m_deadline = never;
}

void LinkActivation::preferNameServers()
{
    if (m_step == Step::Up && m_takesPart && !m_active.empty() && !cellular())
        m_nameServers.start(m_host.bus(), m_choice.device.path);
}

void LinkActivation::findAgain()
{
    auto done = [this](const ServicePicture& picture) { found(picture); };
    m_listing.start(m_host.bus(), false, done);
}

namespace {

bool isFree(const ServicePicture& picture, const std::string& modem)
{
    return std::any_of(
        picture.devices.begin(), picture.devices.end(), [&modem](const ServiceDevice& device) {
            return !modem.empty() && device.modem == modem && device.state == nm::Disconnected;
        });
}

} // namespace

void LinkActivation::found(const ServicePicture& picture)
{
    for (const ServiceDevice& device : picture.devices) {
        bool up = device.state == nm::Activated && !device.active.empty();
        if (m_step != Step::Up || !up || device.ipInterface != m_device.name)
            continue;
        m_choice.device = device;
        m_active = device.active;
        m_host.listen(device.path, nm::device);
        m_host.listen(device.active, nm::active);
        if (m_takesPart)
            m_host.own({device.active, device.path, fieldText(m_opening.record.gprsApn), false});
    }
    m_leftConnected = m_active.empty() && cellular() && isFree(picture, m_choice.device.modem);
    if (m_closed && !m_active.empty())
        finish();
    else if (m_closed && m_leftConnected)
        hangUp();
}

void LinkActivation::hangUp()
{
    BusCall call =
        m_host.bus().call({mm::service, m_choice.device.modem, mm::simple, "Disconnect"});
    m_host.bus().send(call.path(noObject));
    finish();
}

// Lets go of the device and of the activation, which ends when it was ours.
void LinkActivation::detach()
{
    if (m_step == Step::Requested)
        m_host.giveBack(m_choice.device.path);
    if (m_takesPart && !m_active.empty())
        m_host.leave(m_active);
    m_takesPart = false;
    m_active.clear();
    m_activated = false;
    m_checked = false;
    m_checking = false;
    m_needsSecret = false;
    m_begun = false;
    m_reason = nm::unknownReason;
    m_device = {};
    m_nameServers.cancel();
    m_bearers.cancel();
    m_request = BusSlot();
    m_state = BusSlot();
}

} // namespace network
