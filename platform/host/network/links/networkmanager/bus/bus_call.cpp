#include <cstring>

#include "network/links/networkmanager/bus/bus_message.h"

namespace network {

// A service that does not run is not started by us: whoever has stopped it had a reason.
BusCall::BusCall(const SdBus& library, sd_bus* bus, const BusTarget& target) : m_lib(library)
{
    note(m_lib.sd_bus_message_new_method_call(bus, &m_message, target.service, target.path.c_str(),
                                              target.interface, target.member));
    if (m_error == 0)
        note(m_lib.sd_bus_message_set_auto_start(m_message, false));
}

BusCall::~BusCall()
{
    m_lib.sd_bus_message_unref(m_message);
}

void BusCall::note(int result)
{
    if (result < 0 && m_error == 0)
        m_error = result;
}

void BusCall::keepSecret()
{
    if (m_error == 0)
        note(m_lib.sd_bus_message_sensitive(m_message));
}

void BusCall::basic(char type, const void* value)
{
    if (m_error == 0)
        note(m_lib.sd_bus_message_append_basic(m_message, type, value));
}

void BusCall::open(char type, const char* contents)
{
    if (m_error == 0)
        note(m_lib.sd_bus_message_open_container(m_message, type, contents));
}

void BusCall::close()
{
    if (m_error == 0)
        note(m_lib.sd_bus_message_close_container(m_message));
}

BusCall& BusCall::text(const std::string& value)
{
    basic(SD_BUS_TYPE_STRING, value.c_str());
    return *this;
}

BusCall& BusCall::path(const std::string& value)
{
    basic(SD_BUS_TYPE_OBJECT_PATH, value.c_str());
    return *this;
}

BusCall& BusCall::number(uint32_t value)
{
    basic(SD_BUS_TYPE_UINT32, &value);
    return *this;
}

BusCall& BusCall::number64(uint64_t value)
{
    basic(SD_BUS_TYPE_UINT64, &value);
    return *this;
}

void BusCall::option(const char* key, const char* value)
{
    open(SD_BUS_TYPE_DICT_ENTRY, "sv");
    basic(SD_BUS_TYPE_STRING, key);
    open(SD_BUS_TYPE_VARIANT, "s");
    basic(SD_BUS_TYPE_STRING, value);
    close();
    close();
}

BusCall& BusCall::volatileOptions()
{
    open(SD_BUS_TYPE_ARRAY, "{sv}");
    option("persist", "volatile");
    option("bind-activation", "dbus-client");
    close();
    return *this;
}

namespace {

// How each alternative of a setting is written.
struct VariantWriter
{
    const SdBus& lib;
    sd_bus_message* message;

    int basic(char type, const char* signature, const void* value) const
    {
        int result = lib.sd_bus_message_open_container(message, SD_BUS_TYPE_VARIANT, signature);
        if (result >= 0)
            result = lib.sd_bus_message_append_basic(message, type, value);
        return result >= 0 ? lib.sd_bus_message_close_container(message) : result;
    }

    int operator()(bool value) const
    {
        int wide = value;
        return basic(SD_BUS_TYPE_BOOLEAN, "b", &wide);
    }
    int operator()(int32_t value) const { return basic(SD_BUS_TYPE_INT32, "i", &value); }
    int operator()(int64_t value) const { return basic(SD_BUS_TYPE_INT64, "x", &value); }
    int operator()(const std::string& value) const
    {
        return basic(SD_BUS_TYPE_STRING, "s", value.c_str());
    }
    int operator()(const std::vector<uint32_t>& value) const
    {
        int result = lib.sd_bus_message_open_container(message, SD_BUS_TYPE_VARIANT, "au");
        if (result >= 0)
            result = lib.sd_bus_message_append_array(message, SD_BUS_TYPE_UINT32, value.data(),
                                                     value.size() * sizeof(uint32_t));
        return result >= 0 ? lib.sd_bus_message_close_container(message) : result;
    }
    int operator()(const std::vector<std::string>& value) const
    {
        int result = lib.sd_bus_message_open_container(message, SD_BUS_TYPE_VARIANT, "as");
        if (result >= 0)
            result = lib.sd_bus_message_open_container(message, SD_BUS_TYPE_ARRAY, "s");
        for (const std::string& one : value) {
            if (result >= 0)
                result = lib.sd_bus_message_append_basic(message, SD_BUS_TYPE_STRING, one.c_str());
        }
        if (result >= 0)
            result = lib.sd_bus_message_close_container(message);
        return result >= 0 ? lib.sd_bus_message_close_container(message) : result;
    }
};

} // namespace

void BusCall::variant(const SettingValue& value)
{
    if (m_error == 0)
        note(std::visit(VariantWriter{m_lib, m_message}, value));
}

void BusCall::entry(const Setting& setting)
{
    open(SD_BUS_TYPE_DICT_ENTRY, "sv");
    basic(SD_BUS_TYPE_STRING, setting.key);
    variant(setting.value);
    close();
}

BusCall& BusCall::settings(const ConnectionSettings& settings)
{
    const char* section = nullptr;
    open(SD_BUS_TYPE_ARRAY, "{sa{sv}}");
    for (const Setting& setting : settings.entries()) {
        if (!section || std::strcmp(section, setting.section) != 0) {
            if (section) {
                close();
                close();
            }
            section = setting.section;
            open(SD_BUS_TYPE_DICT_ENTRY, "sa{sv}");
            basic(SD_BUS_TYPE_STRING, section);
            open(SD_BUS_TYPE_ARRAY, "{sv}");
        }
        entry(setting);
    }
    if (section) {
        close();
        close();
    }
    close();
    return *this;
}

// The values are copied as they are, whatever their types.
BusCall& BusCall::copyOf(BusMessage& reply, const Setting& changed)
{
    sd_bus_message* from = reply.raw();
    open(SD_BUS_TYPE_ARRAY, "{sa{sv}}");
    enter(from, SD_BUS_TYPE_ARRAY, "{sa{sv}}");
    while (m_error == 0 && m_lib.sd_bus_message_peek_type(from, nullptr, nullptr) > 0)
        copySection(from, changed);
    leave(from);
    close();
    return *this;
}

void BusCall::enter(sd_bus_message* from, char type, const char* contents)
{
    if (m_error == 0)
        note(m_lib.sd_bus_message_enter_container(from, type, contents));
}

void BusCall::leave(sd_bus_message* from)
{
    if (m_error == 0)
        note(m_lib.sd_bus_message_exit_container(from));
}

std::string BusCall::copyKey(sd_bus_message* from)
{
    const char* key = "";
    if (m_error == 0)
        note(m_lib.sd_bus_message_read_basic(from, SD_BUS_TYPE_STRING, &key));
    return key;
}

void BusCall::copySection(sd_bus_message* from, const Setting& changed)
{
    enter(from, SD_BUS_TYPE_DICT_ENTRY, "sa{sv}");
    open(SD_BUS_TYPE_DICT_ENTRY, "sa{sv}");
    std::string section = copyKey(from);
    basic(SD_BUS_TYPE_STRING, section.c_str());
    enter(from, SD_BUS_TYPE_ARRAY, "{sv}");
    open(SD_BUS_TYPE_ARRAY, "{sv}");
    bool concerned = section == changed.section;
    while (m_error == 0 && m_lib.sd_bus_message_peek_type(from, nullptr, nullptr) > 0)
        copyEntry(from, concerned ? changed.key : nullptr);
    if (concerned)
        entry(changed);
    close();
    close();
    leave(from);
    leave(from);
}

void BusCall::copyEntry(sd_bus_message* from, const char* without)
{
    enter(from, SD_BUS_TYPE_DICT_ENTRY, "sv");
    std::string key = copyKey(from);
    if (without && key == without) {
        note(m_lib.sd_bus_message_skip(from, "v"));
    } else {
        open(SD_BUS_TYPE_DICT_ENTRY, "sv");
        basic(SD_BUS_TYPE_STRING, key.c_str());
        if (m_error == 0)
            note(m_lib.sd_bus_message_copy(m_message, from, false));
        close();
    }
    leave(from);
}

} // namespace network
