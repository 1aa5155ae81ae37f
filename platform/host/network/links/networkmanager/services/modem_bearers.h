// Asks ModemManager about the bearers of a modem: which access point is really used, and why the
// last dialling has failed.
#ifndef NETWORK_NETWORKMANAGER_MODEM_BEARERS_H
#define NETWORK_NETWORKMANAGER_MODEM_BEARERS_H

#include <functional>
#include <string>
#include <vector>

#include "network/links/networkmanager/bus/bus_connection.h"

namespace network {

struct ModemBearer
{
    bool connected = false;
    std::string interface;
    std::string apn;
    std::string error; // name of the error of the last dialling, or ""
};

ModemBearer readBearer(const BusValue& properties);

// An access point with and without its operator's identifier is the same (3GPP TS 23.003, clause
// 9.1), and so it is in capitals.
bool sameAccessPoint(const std::string& a, const std::string& b);

class ModemBearers
{
public:
    using Done = std::function<void(const std::vector<ModemBearer>&)>;

    // The answer comes to `done`, once; a bearer that does not answer is left out. A later start
    // takes back an earlier one.
    void start(BusConnection& bus, const std::string& modem, Done done);

    // The answer does not come any more.
    void cancel();

private:
    void ask(BusConnection& bus, const std::string& bearer);
    void answered();

    Done m_done;
    std::vector<ModemBearer> m_bearers;
    std::size_t m_pending = 0;
    BusSlot m_list;
    std::vector<BusSlot> m_questions;
};

} // namespace network

#endif
