#include "network/links/networkmanager/opening/name_server_request.h"

#include "network/links/networkmanager/opening/profile_connection.h"
#include "network/links/networkmanager/services/service_names.h"

namespace network {

void NameServerRequest::start(BusConnection& bus, const std::string& device)
{
    if (m_asked || !bus.isOpen())
        return;
    BusCall call = bus.call({nm::service, device, nm::device, "GetAppliedConnection"});
    call.number(0);
    auto handler = [this, &bus, device](BusMessage& applied) { reapply(bus, device, applied); };
    m_asked = bus.send(call, handler, &m_question) == 0;
}

void NameServerRequest::cancel()
{
    m_asked = false;
    m_question = BusSlot();
}

// The service refuses a connection that somebody else has changed meanwhile, by its version.
void NameServerRequest::reapply(BusConnection& bus, const std::string& device, BusMessage& applied)
{
    if (applied.isError())
        return;
    BusCall call = bus.call({nm::service, device, nm::device, "Reapply"});
    call.keepSecret();
    call.copyOf(applied, firstNameServers());
    call.number64(applied.next().toNumber()).number(0);
    bus.send(call);
}

} // namespace network
