#include "network/fake/value.h"

namespace fakebus {

template <typename... Arguments> static Value value(const char* type, Arguments... arguments)
{
    return {type, [=](sd_bus_message* message) {
                return sd_bus_message_append(message, type, arguments...);
            }};
}

Value text(const std::string& value)
{
    return {"s", [=](sd_bus_message* message) {
                return sd_bus_message_append(message, "s", value.c_str());
            }};
}

Value path(const std::string& value)
{
    return {"o", [=](sd_bus_message* message) {
                return sd_bus_message_append(message, "o", value.c_str());
            }};
}

Value paths(const std::vector<std::string>& values)
{
    return {"ao", [=](sd_bus_message* message) {
                int result = sd_bus_message_open_container(message, 'a', "o");
                for (const std::string& one : values)
                    sd_bus_message_append(message, "o", one.c_str());
                return result < 0 ? result : sd_bus_message_close_container(message);
            }};
}

Value flag(bool truth)
{
    return value("b", int(truth));
}

Value number(uint32_t number)
{
    return value("u", number);
}

Value integer(int32_t number)
{
    return value("i", number);
}

Value byte(uint8_t number)
{
    return value("y", number);
}

Value bytes(const std::string& content)
{
    return {"ay", [=](sd_bus_message* message) {
                return sd_bus_message_append_array(message, 'y', content.data(), content.size());
            }};
}

Value two(uint32_t first, uint32_t second)
{
    return value("(uu)", first, second);
}

Value twoTexts(const std::string& first, const std::string& second)
{
    return {"(ss)", [=](sd_bus_message* message) {
                return sd_bus_message_append(message, "(ss)", first.c_str(), second.c_str());
            }};
}

Value signal(uint32_t percent, bool recent)
{
    return value("(ub)", percent, int(recent));
}

Value addresses(const std::vector<std::string>& values)
{
    return {"aa{sv}", [=](sd_bus_message* message) {
                int result = sd_bus_message_open_container(message, 'a', "a{sv}");
                for (const std::string& one : values)
                    sd_bus_message_append(message, "a{sv}", 2, "address", "s", one.c_str(),
                                          "prefix", "u", 24);
                return result < 0 ? result : sd_bus_message_close_container(message);
            }};
}

int appendDictionary(sd_bus_message* message, const Dictionary& values)
{
    int result = sd_bus_message_open_container(message, 'a', "{sv}");
    for (const auto& [key, one] : values) {
        sd_bus_message_open_container(message, 'e', "sv");
        sd_bus_message_append(message, "s", key.c_str());
        sd_bus_message_open_container(message, 'v', one.type.c_str());
        result = one.append(message);
        if (result < 0)
            return result;
        sd_bus_message_close_container(message);
        sd_bus_message_close_container(message);
    }
    return result < 0 ? result : sd_bus_message_close_container(message);
}

Value dictionary(const Dictionary& values)
{
    return {"a{sv}", [=](sd_bus_message* message) { return appendDictionary(message, values); }};
}

int appendSettings(sd_bus_message* message, const Settings& settings)
{
    int result = sd_bus_message_open_container(message, 'a', "{sa{sv}}");
    for (const auto& [section, values] : settings) {
        sd_bus_message_open_container(message, 'e', "sa{sv}");
        sd_bus_message_append(message, "s", section.c_str());
        result = appendDictionary(message, values);
        if (result < 0)
            return result;
        sd_bus_message_close_container(message);
    }
    return result < 0 ? result : sd_bus_message_close_container(message);
}

namespace {

std::string readBasic(sd_bus_message* message, char type)
{
    union
    {
        const char* text;
        int flag;
        uint8_t small;
        int32_t integer;
        uint32_t number;
        int64_t longer;
        uint64_t large;
    } value = {};
    if (sd_bus_message_read_basic(message, type, &value) < 0)
        return "damaged";
    switch (type) {
    case 's':
    case 'o':
        return value.text;
    case 'b':
        return value.flag ? "true" : "false";
    case 'y':
        return std::to_string(value.small);
    case 'i':
        return std::to_string(value.integer);
    case 'u':
        return std::to_string(value.number);
    case 'x':
        return std::to_string(value.longer);
    case 't':
        return std::to_string(value.large);
    }
    return "unknown";
}

// The next value, with blanks between the elements of a list.
std::string readAny(sd_bus_message* message)
{
    char type = 0;
    const char* contents = nullptr;
    if (sd_bus_message_peek_type(message, &type, &contents) <= 0)
        return "damaged";
    if (!contents)
        return readBasic(message, type);
    std::string all;
    sd_bus_message_enter_container(message, type, contents);
    while (sd_bus_message_at_end(message, 0) == 0)
        all += (all.empty() ? "" : " ") + readAny(message);
    sd_bus_message_exit_container(message);
    return all;
}

} // namespace

int readDictionary(sd_bus_message* message, const std::string& prefix, Told* told)
{
    int result = sd_bus_message_enter_container(message, 'a', "{sv}");
    while (result >= 0 && sd_bus_message_enter_container(message, 'e', "sv") > 0) {
        const char* key = nullptr;
        result = sd_bus_message_read(message, "s", &key);
        if (result >= 0)
            (*told)[prefix + key] = readAny(message);
        sd_bus_message_exit_container(message);
    }
    return result < 0 ? result : sd_bus_message_exit_container(message);
}

int readSettings(sd_bus_message* message, Told* told)
{
    int result = sd_bus_message_enter_container(message, 'a', "{sa{sv}}");
    while (result >= 0 && sd_bus_message_enter_container(message, 'e', "sa{sv}") > 0) {
        const char* section = nullptr;
        result = sd_bus_message_read(message, "s", &section);
        if (result >= 0)
            result = readDictionary(message, std::string(section) + ".", told);
        sd_bus_message_exit_container(message);
    }
    return result < 0 ? result : sd_bus_message_exit_container(message);
}

} // namespace fakebus
