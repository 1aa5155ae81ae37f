#include "network/links/networkmanager/services/service_listing.h"

#include <cerrno>
#include <utility>

#include "network/links/networkmanager/services/service_names.h"

namespace network {

int ServiceListing::start(BusConnection& bus, bool modems, Done done)
{
    m_done = std::move(done);
    clear();
    m_pending = 0;
    auto devices = [this](BusMessage& reply) { readDevices(reply); };
    if (int error = ask(bus, nm::service, nm::root, devices, &m_devices))
        return error;
    auto ofModems = [this](BusMessage& reply) { readModems(reply); };
    return modems ? ask(bus, mm::service, mm::root, ofModems, &m_modems) : 0;
}

void ServiceListing::clear()
{
    m_picture = {};
}

int ServiceListing::ask(BusConnection& bus, const char* service, const char* root,
                        BusHandler handler, BusSlot* slot)
{
    BusCall call = bus.call({service, root, objectManager, "GetManagedObjects"});
    // Links that are further ahead go first.
    int error = bus.send(call, std::move(handler), slot, BusConnection::Turn::Patient);
    m_pending += error == 0;
    return error;
}

void ServiceListing::readDevices(BusMessage& reply)
{
    BusValue objects = reply.isError() ? BusValue() : reply.next();
    if (reply.isError())
        m_picture.unreachable = causeOfCallError(reply.errorName());
    else if (objects.kind() != BusValue::Kind::Dictionary)
        m_picture.unreachable = causeOfErrno(NAPI_CAUSE_UNKNOWN, EBADMSG);
    readNetworkManager(objects, &m_picture);
    answered();
}

void ServiceListing::readModems(BusMessage& reply)
{
    m_picture.modemService = !reply.isError();
    if (m_picture.modemService)
        readModemManager(reply.next(), &m_picture);
    answered();
}

void ServiceListing::answered()
{
    if (--m_pending == 0)
        m_done(m_picture);
}

} // namespace network
