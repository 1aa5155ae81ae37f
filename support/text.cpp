#include "support/text.h"

#include <cstring>

#include "support/units.h"

namespace support {

namespace {

constexpr char16_t replacement = 0xfffd;

bool isHighSurrogate(char16_t unit)
{
    return unit >= 0xd800 && unit <= 0xdbff;
}
bool isLowSurrogate(char16_t unit)
{
    return unit >= 0xdc00 && unit <= 0xdfff;
}

// How many bytes follow a first byte, the bits of the number that it carries, and the least number
// that needs so many bytes.
struct Form
{
    unsigned char mask;
    unsigned char lead;
    std::size_t following;
    char32_t least;
};

constexpr Form forms[] = {
    {0x80, 0x00, 0, 0},
    {0xe0, 0xc0, 1, 0x80},
    {0xf0, 0xe0, 2, 0x800},
    {0xf8, 0xf0, 3, 0x10000},
};

struct Decoded
{
    char32_t character;
    std::size_t size; // 0 where no well-formed sequence begins
};

constexpr Decoded malformed = {0, 0};

Decoded decodeForm(const Form& form, std::string_view bytes)
{
    if (bytes.size() <= form.following)
        return malformed;
    char32_t character =
        static_cast<unsigned char>(bytes[0]) & static_cast<unsigned char>(~form.mask);
    for (std::size_t i = 1; i <= form.following; ++i) {
        const unsigned char byte = static_cast<unsigned char>(bytes[i]);
        if ((byte & 0xc0) != 0x80)
            return malformed;
        character = (character << 6) | (byte & 0x3f);
    }
    const bool surrogate = character >= 0xd800 && character <= 0xdfff;
    if (character < form.least || character > 0x10ffff || surrogate)
        return malformed;
    return {character, form.following + 1};
}

Decoded decode(std::string_view bytes)
{
    for (const Form& form : forms) {
        if ((static_cast<unsigned char>(bytes[0]) & form.mask) == form.lead)
            return decodeForm(form, bytes);
    }
    return malformed;
}

void appendUnits(std::u16string& units, char32_t character)
{
    if (character < 0x10000) {
        units += static_cast<char16_t>(character);
        return;
    }
    units += static_cast<char16_t>(0xd800 + ((character - 0x10000) >> 10));
    units += static_cast<char16_t>(0xdc00 + ((character - 0x10000) & 0x3ff));
}

void appendBytes(std::string& bytes, char32_t character)
{
    const Form* form = forms;
    while (form + 1 != std::end(forms) && character >= form[1].least)
        ++form;
    std::size_t shift = 6 * form->following;
    bytes += static_cast<char>(form->lead | (character >> shift));
    while (shift > 0) {
        shift -= 6;
        bytes += static_cast<char>(0x80 | ((character >> shift) & 0x3f));
    }
}

} // namespace

QString fromUtf8(const char* bytes, int size)
{
    if (!bytes)
        return QString();
    std::string_view rest(bytes, size < 0 ? std::strlen(bytes) : static_cast<std::size_t>(size));
    std::u16string units;
    units.reserve(rest.size());
    while (!rest.empty()) {
        const Decoded next = decode(rest);
        appendUnits(units, next.size ? next.character : replacement);
        rest.remove_prefix(next.size ? next.size : 1);
    }
    return textOf(units);
}

std::string utf8(const QString& text)
{
    const std::u16string units = unitsOf(text);
    std::string bytes;
    bytes.reserve(units.size());
    for (std::size_t i = 0; i < units.size(); ++i) {
        const char16_t unit = units[i];
        if (isHighSurrogate(unit) && i + 1 < units.size() && isLowSurrogate(units[i + 1])) {
            ++i;
            appendBytes(bytes, 0x10000 + ((unit - 0xd800u) << 10) + (units[i] - 0xdc00u));
        } else {
            appendBytes(bytes, isHighSurrogate(unit) || isLowSurrogate(unit) ? U'?' : unit);
        }
    }
    return bytes;
}

std::string latin1(const QString& text)
{
    std::string bytes;
    for (char16_t unit : unitsOf(text))
        bytes += unit > 0xff ? '?' : static_cast<char>(unit);
    return bytes;
}

QString trimmed(const QString& text)
{
    return text.isNull() ? QString() : textOf(trimmedUnits(unitsOf(text)));
}

int compare(const QString& a, const QString& b)
{
    if (a.isNull() || b.isNull())
        return static_cast<int>(a.isNull()) - static_cast<int>(b.isNull());
    const int order = unitsOf(a).compare(unitsOf(b));
    return (order > 0) - (order < 0);
}

} // namespace support
