#include "profile/values.h"

#include <cctype>
#include <cstring>

#include "base/ip_address.h"
#include "base/utf8.h"
#include "terminal_text.h"

namespace ctl {

namespace {

// The value of a text that is nothing but decimal digits; nothing when it is not or is above
// `limit`.
std::optional<uint32_t> decimal(std::string_view text, uint32_t limit)
{
    uint64_t value = 0;
    for (const char c : text) {
        if (c < '0' || c > '9')
            return {};
        value = value * 10 + static_cast<unsigned>(c - '0');
        if (value > limit)
            return {};
    }
    if (text.empty())
        return {};
    return static_cast<uint32_t>(value);
}

uint32_t largest(const Field& field)
{
    return field.mask >> field.shift;
}

std::optional<uint32_t> choice(const Field& field, const std::string& text)
{
    for (const Choice* c = field.choices; c->text; ++c)
        if (text == c->text)
            return c->value;
    if (text.compare(0, 5, "code-") == 0)
        return decimal(std::string_view(text).substr(5), largest(field));
    return {};
}

std::optional<uint32_t> number(const Field& field, const std::string& text)
{
    switch (field.kind) {
    case Kind::Address:
        return text.empty() ? 0 : base::ipv4Of(text);
    case Kind::Minutes:
        return text == "off" ? 0 : decimal(text, largest(field));
    case Kind::Choice:
        return choice(field, text);
    case Kind::Port:
    case Kind::Mark:
        return decimal(text, largest(field));
    case Kind::Text:
    case Kind::Secret:
    case Kind::Kept:
        break;
    }
    return {};
}

std::string choiceText(const Field& field, uint32_t value)
{
    for (const Choice* c = field.choices; c->text; ++c)
        if (value == c->value)
            return c->text;
    return "code-" + std::to_string(value);
}

bool isText(const Field& field)
{
    return field.kind == Kind::Text || field.kind == Kind::Secret;
}

std::optional<std::string> parseText(const Field& field, const std::string& text,
                                     NetworkProfile& record)
{
    if (text.size() > field.width)
        return std::to_string(text.size()) + " bytes are too long; the field holds " +
               std::to_string(field.width) + " bytes";
    if (!base::isUtf8(text))
        return "the text is not valid UTF-8";
    if (base::hasControls(text))
        return "the text holds a control character";
    unsigned char* bytes = bytesOf(field, record);
    std::memset(bytes, 0, field.width);
    std::memcpy(bytes, text.data(), text.size());
    return {};
}

int hexDigit(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    const char lower = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

// The field's own bits in its byte number `i`: all of them in a field that shares no byte with
// another.
unsigned char ownBits(const Field& field, std::size_t i)
{
    return static_cast<unsigned char>(field.mask == 0 ? 0xFF : field.mask >> (8 * i));
}

} // namespace

std::string valueText(const Field& field, const NetworkProfile& record)
{
    if (isText(field)) {
        const char* text = reinterpret_cast<const char*>(bytesOf(field, record));
        return std::string(text, strnlen(text, field.width));
    }
    if (field.kind == Kind::Kept)
        return hexText(field, record);
    const uint32_t value = numberOf(field, record);
    if (field.kind == Kind::Address)
        return value ? base::ipv4Text(value) : "";
    return field.kind == Kind::Choice ? choiceText(field, value) : std::to_string(value);
}

std::string shownText(const Field& field, const NetworkProfile& record, bool secrets)
{
    const std::string text = valueText(field, record);
    if (text.empty())
        return "-";
    if (field.kind == Kind::Secret && !secrets)
        return "(set)";
    if (field.kind == Kind::Minutes)
        return text == "0" ? "off" : text + " min";
    return field.kind == Kind::Port && text == "0" ? "-" : text;
}

std::string rangeText(const Field& field)
{
    switch (field.kind) {
    case Kind::Text:
    case Kind::Secret:
        return "a text of at most " + std::to_string(field.width) + " bytes";
    case Kind::Address:
        return "four decimal numbers from 0 to 255 (10.0.0.1), or nothing";
    case Kind::Minutes:
        return "0 to " + std::to_string(largest(field)) + " minutes, or off";
    case Kind::Port:
    case Kind::Mark:
        return "0 to " + std::to_string(largest(field));
    case Kind::Kept:
        return std::to_string(2 * field.width) + " hexadecimal digits";
    case Kind::Choice:
        break;
    }
    std::string text;
    for (const Choice* c = field.choices; c->text; ++c)
        text += std::string(c->text) + ", ";
    return text + "or code-0 to code-" + std::to_string(largest(field));
}

std::optional<std::string> parseValue(const Field& field, const std::string& text,
                                      NetworkProfile& record)
{
    if (isText(field))
        return parseText(field, text, record);
    if (field.kind == Kind::Kept)
        return parseHex(field, text, record);
    const std::optional<uint32_t> value = number(field, text);
    if (!value)
        return inQuotes(text) + " does not fit; it takes " + rangeText(field);
    setNumber(field, *value, record);
    return {};
}

std::string hexText(const Field& field, const NetworkProfile& record)
{
    static const char digits[] = "0123456789abcdef";
    const unsigned char* bytes = bytesOf(field, record);
    std::string text;
    for (std::size_t i = 0; i < field.width; ++i) {
        const unsigned own = bytes[i] & ownBits(field, i);
        text += digits[own >> 4];
        text += digits[own & 0xF];
    }
    return text;
}

std::optional<std::string> parseHex(const Field& field, const std::string& hex,
                                    NetworkProfile& record)
{
    if (hex.size() != 2 * field.width)
        return std::to_string(hex.size()) + " hexadecimal digits do not fit; it takes " +
               std::to_string(2 * field.width);
    for (const char c : hex)
        if (hexDigit(c) < 0)
            return std::string("the text holds something that is no hexadecimal digit");
    unsigned char* bytes = bytesOf(field, record);
    for (std::size_t i = 0; i < field.width; ++i) {
        const int value = hexDigit(hex[2 * i]) << 4 | hexDigit(hex[2 * i + 1]);
        const unsigned char own = ownBits(field, i);
        bytes[i] = static_cast<unsigned char>((bytes[i] & ~own) | (value & own));
    }
    return {};
}

bool isPlain(const Field& field, const NetworkProfile& record)
{
    NetworkProfile copy = record;
    if (parseValue(field, valueText(field, record), copy))
        return false;
    return std::memcmp(&copy, &record, sizeof record) == 0;
}

} // namespace ctl
