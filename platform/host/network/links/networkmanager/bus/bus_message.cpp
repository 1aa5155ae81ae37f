#include "network/links/networkmanager/bus/bus_message.h"

namespace network {

namespace {

std::string orEmpty(const char* text)
{
    return text ? text : "";
}

} // namespace

std::string BusMessage::errorName() const
{
    const sd_bus_error* error = m_lib.sd_bus_message_get_error(m_message);
    return error ? orEmpty(error->name) : "";
}

std::string BusMessage::errorText() const
{
    const sd_bus_error* error = m_lib.sd_bus_message_get_error(m_message);
    return error ? orEmpty(error->message) : "";
}

std::string BusMessage::member() const
{
    return orEmpty(m_lib.sd_bus_message_get_member(m_message));
}

std::string BusMessage::path() const
{
    return orEmpty(m_lib.sd_bus_message_get_path(m_message));
}

// A damaged message stays where it is, so nothing more is read from it.
bool BusMessage::peek(char* type, const char** contents) const
{
    return !m_damaged && m_lib.sd_bus_message_peek_type(m_message, type, contents) > 0;
}

BusValue BusMessage::next()
{
    char type = 0;
    const char* contents = nullptr;
    return peek(&type, &contents) ? read(type, contents) : BusValue();
}

BusValue BusMessage::read(char type, const char* contents)
{
    bool basic =
        type != SD_BUS_TYPE_ARRAY && type != SD_BUS_TYPE_VARIANT && type != SD_BUS_TYPE_STRUCT;
    BusValue value = basic ? readBasic(type) : readContainer(type, contents);
    m_damaged = m_damaged || value.kind() == BusValue::Kind::None;
    return value;
}

namespace {

// Each reading of a basic type goes into room for the largest of them.
template <typename Number> BusValue number(const SdBus& lib, sd_bus_message* message, char type)
{
    Number value = 0;
    if (lib.sd_bus_message_read_basic(message, type, &value) <= 0)
        return {};
    return BusValue::number(static_cast<uint64_t>(value));
}

BusValue flag(const SdBus& lib, sd_bus_message* message)
{
    int value = 0;
    if (lib.sd_bus_message_read_basic(message, SD_BUS_TYPE_BOOLEAN, &value) <= 0)
        return {};
    return BusValue::flag(value != 0);
}

BusValue text(const SdBus& lib, sd_bus_message* message, char type)
{
    const char* value = nullptr;
    if (lib.sd_bus_message_read_basic(message, type, &value) <= 0)
        return {};
    return BusValue::text(orEmpty(value));
}

} // namespace

BusValue BusMessage::readBasic(char type)
{
    switch (type) {
    case SD_BUS_TYPE_BOOLEAN:
        return flag(m_lib, m_message);
    case SD_BUS_TYPE_BYTE:
        return number<uint8_t>(m_lib, m_message, type);
    case SD_BUS_TYPE_INT16:
        return number<int16_t>(m_lib, m_message, type);
    case SD_BUS_TYPE_UINT16:
        return number<uint16_t>(m_lib, m_message, type);
    case SD_BUS_TYPE_INT32:
        return number<int32_t>(m_lib, m_message, type);
    case SD_BUS_TYPE_UINT32:
        return number<uint32_t>(m_lib, m_message, type);
    case SD_BUS_TYPE_INT64:
        return number<int64_t>(m_lib, m_message, type);
    case SD_BUS_TYPE_UINT64:
        return number<uint64_t>(m_lib, m_message, type);
    case SD_BUS_TYPE_STRING:
    case SD_BUS_TYPE_OBJECT_PATH:
    case SD_BUS_TYPE_SIGNATURE:
        return text(m_lib, m_message, type);
    default: // file descriptors and floating numbers, which nothing here asks for
        return m_lib.sd_bus_message_skip(m_message, nullptr) < 0 ? BusValue() : BusValue::text("");
    }
}

BusValue BusMessage::readBytes()
{
    const void* bytes = nullptr;
    std::size_t size = 0;
    if (m_lib.sd_bus_message_read_array(m_message, SD_BUS_TYPE_BYTE, &bytes, &size) < 0)
        return {};
    return BusValue::text(std::string(static_cast<const char*>(bytes), size));
}

BusValue BusMessage::readContainer(char type, const char* contents)
{
    if (type == SD_BUS_TYPE_ARRAY && contents && contents[0] == SD_BUS_TYPE_BYTE)
        return readBytes();
    bool entries = type == SD_BUS_TYPE_ARRAY && contents && contents[0] == '{';
    BusValue dictionary = BusValue::dictionary();
    std::vector<BusValue> elements;
    if (m_lib.sd_bus_message_enter_container(m_message, type, contents) < 0)
        return {};
    for (char inner = 0; peek(&inner, &contents);) {
        if (entries)
            readEntry(&dictionary);
        else
            elements.push_back(read(inner, contents));
    }
    if (m_damaged || m_lib.sd_bus_message_exit_container(m_message) < 0)
        return {};
    if (type == SD_BUS_TYPE_VARIANT)
        return elements.empty() ? BusValue::text("") : std::move(elements.front());
    return entries ? std::move(dictionary) : BusValue::list(std::move(elements));
}

// A dictionary whose keys are numbers keeps its values under the key "". Passwords are nobody's
// business here, so no copy of them is made.
void BusMessage::readEntry(BusValue* dictionary)
{
    char type = 0;
    const char* contents = nullptr;
    m_lib.sd_bus_message_peek_type(m_message, &type, &contents);
    m_damaged = m_lib.sd_bus_message_enter_container(m_message, type, contents) < 0;
    BusValue key = next();
    if (key.toText() != "password")
        dictionary->add(key.toText(), next());
    else
        m_damaged = m_lib.sd_bus_message_skip(m_message, nullptr) < 0;
    m_damaged = m_damaged || m_lib.sd_bus_message_exit_container(m_message) < 0;
}

} // namespace network
