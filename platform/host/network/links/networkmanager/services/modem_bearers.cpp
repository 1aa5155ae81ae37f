#include "network/links/networkmanager/services/modem_bearers.h"

#include <utility>

#include <strings.h>

#include "network/links/networkmanager/services/service_names.h"

namespace network {

ModemBearer readBearer(const BusValue& properties)
{
    ModemBearer bearer;
    bearer.connected = properties.at("Connected").toFlag();
    bearer.interface = properties.at("Interface").toText();
    bearer.apn = properties.at("Properties").at("apn").toText();
    bearer.error = properties.at("ConnectionError").at(std::size_t{0}).toText();
    return bearer;
}

namespace {

std::string withoutOperator(const std::string& apn)
{
    constexpr char operatorPart[] = ".mnc";
    constexpr std::size_t length = sizeof operatorPart - 1;
    for (std::size_t at = 0; at + length <= apn.size(); ++at) {
        if (::strncasecmp(apn.c_str() + at, operatorPart, length) == 0)
            return apn.substr(0, at);
    }
    return apn;
}

} // namespace

bool sameAccessPoint(const std::string& a, const std::string& b)
{
    return ::strcasecmp(withoutOperator(a).c_str(), withoutOperator(b).c_str()) == 0;
}

void ModemBearers::start(BusConnection& bus, const std::string& modem, Done done)
{
    m_bearers.clear();
    m_questions.clear();
    m_done = std::move(done);
    m_pending = 1;
    BusCall call = bus.call({mm::service, modem, propertiesInterface, "Get"});
    call.text(mm::modem).text("Bearers");
    auto handler = [this, &bus](BusMessage& reply) {
        BusValue bearers = reply.next();
        for (const BusValue& bearer : bearers.elements())
            ask(bus, bearer.toText());
        answered();
    };
    if (bus.send(call, handler, &m_list) != 0)
        answered();
}

void ModemBearers::ask(BusConnection& bus, const std::string& bearer)
{
    BusCall call = bus.call({mm::service, bearer, propertiesInterface, "GetAll"});
    call.text(mm::bearer);
    auto handler = [this](BusMessage& reply) {
        reply.keepSecret(); // the password that was dialled with is in it
        if (!reply.isError())
            m_bearers.push_back(readBearer(reply.next()));
        answered();
    };
    BusSlot slot;
    if (bus.send(call, handler, &slot) != 0)
        return;
    m_questions.push_back(std::move(slot));
    ++m_pending;
}

void ModemBearers::cancel()
{
    m_list = BusSlot();
    m_questions.clear();
}

// Whoever hears the answer may ask again.
void ModemBearers::answered()
{
    if (--m_pending > 0)
        return;
    std::vector<ModemBearer> bearers = std::move(m_bearers);
    Done done = m_done;
    done(bearers);
}

} // namespace network
