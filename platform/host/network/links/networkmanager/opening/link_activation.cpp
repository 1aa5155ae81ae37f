#include "network/links/networkmanager/opening/link_activation.h"

#include <algorithm>
#include <cerrno>
#include <utility>

#include "network/links/machine_choice.h"
#include "network/links/networkmanager/opening/profile_connection.h"
#include "network/links/networkmanager/services/service_names.h"

namespace network {

using Way = DeviceChoice::Way;

LinkActivation::LinkActivation(ActivationHost& host, const Opening& opening,
                               const std::string& owner)
    : m_host(host), m_opening(opening), m_owner(owner)
{}

LinkActivation::~LinkActivation() = default;

void LinkActivation::wait(Step step, Clock::duration time)
{
    m_step = step;
    m_deadline = Clock::now() + time;
}

void LinkActivation::guard(Step step)
{
    m_step = step;
    m_deadline = m_guard;
}

void LinkActivation::begin()
{
    m_kinds = allowedKinds(m_opening.record);
    list();
}

// A device that is known to be free needs no question.
bool LinkActivation::recall()
{
    if (!m_opening.config->roaming)
        return false; // whether the modem is abroad is asked each time
    ServicePicture free = m_host.freeDevices();
    if (free.devices.empty() || m_kinds.empty() ||
        chooseDevice(m_kinds.front(), *m_opening.config, free).way == Way::None)
        return false;
    m_listing.take(std::move(free));
    return true;
}

void LinkActivation::list()
{
    m_recalled = recall();
    if (m_recalled)
        choose();
    else
        askServices();
}

// ModemManager is asked where a modem could serve.
void LinkActivation::askServices()
{
    bool modems = std::find(m_kinds.begin(), m_kinds.end(), NAPI_BEARER_GPRS) != m_kinds.end();
    wait(Step::Listing, m_opening.config->guards.reply);
    say("asking NetworkManager for its devices");
    auto done = [this](const ServicePicture& picture) { listed(picture); };
    if (int error = m_listing.start(m_host.bus(), modems, done))
        lose(causeOfErrno(NAPI_CAUSE_NO_SERVICE_DAEMON, error));
}

void LinkActivation::listed(const ServicePicture& picture)
{
    if (picture.unreachable.cause != NAPI_CAUSE_NONE)
        lose(picture.unreachable);
    else
        choose();
}

namespace {

Cause withoutModem(const ServicePicture& picture, const DeviceChoice& choice)
{
    bool missing = choice.device.path.empty() && choice.cause.detail != 0;
    return missing && !picture.modemService ? Cause{NAPI_CAUSE_NO_SERVICE_DAEMON, 0} : choice.cause;
}

} // namespace

// Tries the kinds that are left, one after the other.
void LinkActivation::choose()
{
    if (m_kinds.empty())
        return lose(m_cause);
    if (m_kind != m_kinds.front()) {
        m_kind = m_kinds.front();
        const GuardTimes& times = m_opening.config->guards;
        m_guard = Clock::now() + (cellular() ? times.cellular : times.wifi);
    }
    if (m_kind == NAPI_BEARER_CSD)
        return refuse({NAPI_CAUSE_NOT_SUPPORTED, 0});
    m_choice = chooseDevice(m_kind, *m_opening.config, m_listing.picture());
    if (m_choice.way == Way::None)
        return refuse(cellular() ? withoutModem(m_listing.picture(), m_choice) : m_choice.cause);
    m_begunElsewhere = true;
    say("device " + m_choice.device.interface);
    if (m_host.isTaken(m_choice.device.path))
        return guard(Step::Waiting);
    if (m_host.ownOn(m_choice.device.path))
        return joinOwn();
    if (m_choice.way != Way::Join)
        return activate();
    return cellular() ? compare() : joinActive();
}

void LinkActivation::deviceIsFree()
{
    if (m_step == Step::Waiting)
        list();
}

// The next kind is tried; the cause of the last one is told.
void LinkActivation::refuse(const Cause& cause)
{
    detach();
    m_cause = cause;
    m_kinds.erase(m_kinds.begin());
    if (m_recalled && !m_kinds.empty())
        list();
    else
        choose();
}

// A link of this process has activated the device, even where it does not show yet.
void LinkActivation::joinOwn()
{
    const OwnActivation* own = m_host.ownOn(m_choice.device.path);
    m_begunElsewhere = m_choice.device.active == own->path;
    m_choice.device.active = own->path;
    if (!cellular() || sameAccessPoint(own->apn, fieldText(m_opening.record.gprsApn)))
        return joinActive();
    return m_opening.config->takeOver ? activate() : refuse({NAPI_CAUSE_BUSY, 0});
}

// The modem is in use; with the profile's access point it serves this link, too.
void LinkActivation::compare()
{
    wait(Step::Comparing, m_opening.config->guards.reply);
    say("comparing the access point that is in use");
    BusCall call =
        m_host.bus().call({nm::service, m_choice.device.connection, nm::connection, "GetSettings"});
    auto handler = [this](BusMessage& reply) { compared(reply); };
    if (m_host.bus().send(call, handler, &m_comparison) != 0)
        refuse({NAPI_CAUSE_BUSY, 0});
}

void LinkActivation::compared(BusMessage& reply)
{
    BusValue settings = reply.isError() ? BusValue() : reply.next();
    const std::string& apn = settings.at("gsm").at("apn").toText();
    if (!apn.empty() && sameAccessPoint(apn, fieldText(m_opening.record.gprsApn)))
        return joinActive();
    if (m_opening.config->takeOver)
        return activate();
    refuse({NAPI_CAUSE_BUSY, 0});
}

// What is up already, or coming up, whoever has activated it.
void LinkActivation::joinActive()
{
    if (m_choice.device.active.empty())
        return refuse({NAPI_CAUSE_BUSY, 0});
    say("sharing the connection that is up");
    m_host.listen(m_choice.device.path, nm::device);
    m_host.watch(m_choice.device);
    m_begun = m_begunElsewhere;
    m_takesPart = m_host.join(m_choice.device.active);
    dialled(m_choice.device.active);
}

namespace {

NapiCause causeOfFault(ProfileFault fault)
{
    return fault == ProfileFault::AccessPoint ? NAPI_CAUSE_SUBSCRIPTION : NAPI_CAUSE_AUTHENTICATION;
}

} // namespace

void LinkActivation::activate()
{
    ProfileFault fault = cellular() ? faultOf(m_opening.record) : ProfileFault::None;
    if (fault != ProfileFault::None)
        return refuse(causeOfErrno(causeOfFault(fault), EINVAL));
    const std::string& device = m_choice.device.path;
    m_begun = false;
    m_host.listen(device, nm::device);
    bool known = m_choice.way == Way::Known;
    BusCall call = m_host.bus().call({nm::service, nm::managerPath, nm::manager,
                                      known ? "ActivateConnection" : "AddAndActivateConnection2"});
    if (known) {
        call.path(noObject).path(device).path(noObject);
    } else {
        call.keepSecret();
        call.settings(cellular() ? packetDataSettings(m_opening, m_owner)
                                 : wiredSettings(m_opening, m_owner));
        call.path(device).path(noObject).volatileOptions();
    }
    auto handler = [this](BusMessage& reply) { answered(reply); };
    if (int error = m_host.bus().send(call, handler, &m_request))
        return refuse(causeOfSending(causeOfFault(ProfileFault::UserName), error));
    say(known ? "activating the connection that NetworkManager knows" : "activating the profile");
    m_host.take(device);
    m_host.watch(m_choice.device);
    guard(Step::Requested);
}

// The path of the activation is the last one of the answer.
void LinkActivation::answered(BusMessage& reply)
{
    std::string device = m_choice.device.path;
    m_step = Step::Dialling;
    if (reply.isError()) {
        m_host.giveBack(device);
        return m_closed ? finish() : refusedByService(reply);
    }
    BusValue first = reply.next();
    std::string active = objectPath(m_choice.way == Way::Known ? first : reply.next());
    if (!active.empty())
        m_host.own({active, device, cellular() ? fieldText(m_opening.record.gprsApn) : "",
                    m_choice.way != Way::Known});
    m_takesPart = !active.empty();
    m_active = active;
    m_host.giveBack(device);
    if (m_closed)
        return finish();
    if (active.empty())
        return refuse(causeOfErrno(NAPI_CAUSE_UNKNOWN, EBADMSG));
    dialled(active);
}

void LinkActivation::refusedByService(BusMessage& reply)
{
    Cause cause = causeOfCallError(reply.errorName());
    say("NetworkManager refuses: " + reply.errorText());
    // What was known for a wire may be a connection of ours that is just being taken down.
    bool wired = m_kind == NAPI_BEARER_WIFI && m_choice.device.type != nm::Wifi;
    if (wired && m_choice.way == Way::Known) {
        m_choice.way = Way::Dial;
        return activate();
    }
    if (std::exchange(m_recalled, false))
        return askServices();
    if (cause.cause == NAPI_CAUSE_NO_CARRIER && m_kind == NAPI_BEARER_WIFI &&
        m_choice.device.type == nm::Wifi)
        cause.cause = NAPI_CAUSE_NO_SERVICE;
    refuse(cause);
}

// The activation may have ended before anybody listened to it, so its state is asked for.
void LinkActivation::dialled(const std::string& active)
{
    m_active = active;
    guard(Step::Dialling);
    m_host.listen(active, nm::active);
    BusCall call = m_host.bus().call({nm::service, active, propertiesInterface, "Get"});
    call.text(nm::active).text("State");
    auto handler = [this](BusMessage& reply) {
        if (causeOfCallError(reply.errorName()).cause == NAPI_CAUSE_NO_SERVICE_DAEMON)
            return serviceGone();
        // An object that is not there any more has ended.
        uint64_t gone = nm::ActiveGone;
        uint64_t state = reply.isError() ? gone : reply.next().toNumber(0);
        activeChanged(m_active, static_cast<uint32_t>(state));
    };
    if (int error = m_host.bus().send(call, handler, &m_state))
        lose(causeOfSending(NAPI_CAUSE_UNKNOWN, error));
}

} // namespace network
