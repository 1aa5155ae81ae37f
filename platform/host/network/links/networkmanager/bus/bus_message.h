// Messages of the bus: one that was received, and a call that is put together.
#ifndef NETWORK_NETWORKMANAGER_BUS_MESSAGE_H
#define NETWORK_NETWORKMANAGER_BUS_MESSAGE_H

#include <string>

#include "network/links/networkmanager/bus/bus_value.h"
#include "network/links/networkmanager/bus/connection_settings.h"
#include "network/links/networkmanager/bus/sd_bus.h"

namespace network {

// A received message, for as long as its handler runs. It is read from its first argument on.
class BusMessage
{
public:
    BusMessage(const SdBus& library, sd_bus_message* message) : m_lib(library), m_message(message)
    {}

    // The name and the text of an error; "" where the message is none.
    std::string errorName() const;
    std::string errorText() const;
    bool isError() const { return !errorName().empty(); }

    std::string member() const;
    std::string path() const;

    // The memory of the message is cleared when it goes.
    void keepSecret() { m_lib.sd_bus_message_sensitive(m_message); }

    // The next argument, and none behind the last one or where the message is damaged.
    BusValue next();

    sd_bus_message* raw() const { return m_message; }

private:
    bool peek(char* type, const char** contents) const;
    BusValue read(char type, const char* contents);
    BusValue readBasic(char type);
    BusValue readContainer(char type, const char* contents);
    BusValue readBytes();
    void readEntry(BusValue* dictionary);

    const SdBus& m_lib;
    sd_bus_message* m_message;
    bool m_damaged = false;
};

// What a call is made to.
struct BusTarget
{
    const char* service;
    std::string path;
    const char* interface;
    const char* member;
};

// A call with its arguments. What goes wrong meanwhile is told once, by error().
class BusCall
{
public:
    BusCall(const SdBus& library, sd_bus* bus, const BusTarget& target);
    ~BusCall();
    BusCall(const BusCall&) = delete;
    BusCall& operator=(const BusCall&) = delete;

    BusCall& text(const std::string& value);
    BusCall& path(const std::string& value);
    BusCall& number(uint32_t value);
    BusCall& number64(uint64_t value);

    // A dictionary of dictionaries, as NetworkManager takes a connection.
    BusCall& settings(const ConnectionSettings& settings);

    // The options of an activation that lives in memory, and no longer than we are on the bus.
    BusCall& volatileOptions();

    // A connection as the next argument of a reply tells it, with one entry put in place of its
    // own; the section of the entry must be there.
    BusCall& copyOf(BusMessage& reply, const Setting& changed);

    // The memory of the message is cleared when it goes.
    void keepSecret();

    int error() const { return m_error < 0 ? -m_error : 0; } // 0 or an errno
    sd_bus_message* raw() const { return m_message; }

private:
    void note(int result);
    void basic(char type, const void* value);
    void open(char type, const char* contents);
    void close();
    void option(const char* key, const char* value);
    void entry(const Setting& setting);
    void variant(const SettingValue& value);
    void copySection(sd_bus_message* from, const Setting& changed);
    void copyEntry(sd_bus_message* from, const char* without);
    std::string copyKey(sd_bus_message* from);
    void enter(sd_bus_message* from, char type, const char* contents);
    void leave(sd_bus_message* from);

    const SdBus& m_lib;
    sd_bus_message* m_message = nullptr;
    int m_error = 0;
};

} // namespace network

#endif
