#include "support/ipv4.h"

#include <string>

#include "support/number.h"
#include "support/units.h"

namespace support {

namespace {

constexpr int partCount = 4;

// Takes the next part that is not empty from the front of `rest`; empty when there is none.
std::u16string_view takePart(std::u16string_view& rest)
{
    while (!rest.empty() && rest.front() == u'.')
        rest.remove_prefix(1);
    const std::u16string_view part = rest.substr(0, rest.find(u'.'));
    rest.remove_prefix(part.size());
    return part;
}

} // namespace

bool ipv4FromText(const QString& text, unsigned int* address)
{
    const std::u16string units = unitsOf(text);
    std::u16string_view rest = trimmedUnits(units);
    unsigned int number = 0;
    for (int i = 0; i < partCount; ++i) {
        bool ok = false;
        const unsigned int part = toUInt32(takePart(rest), &ok);
        if (!ok || part > 255)
            return false;
        number = (number << 8) | part;
    }
    if (!takePart(rest).empty())
        return false;
    *address = number;
    return true;
}

QString ipv4ToText(unsigned int address)
{
    std::string text;
    for (int shift = 24; shift >= 0; shift -= 8) {
        text += std::to_string((address >> shift) & 0xff);
        text += shift ? "." : "";
    }
    return QString(text.c_str());
}

} // namespace support
