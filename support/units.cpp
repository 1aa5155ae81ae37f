#include "support/units.h"

#include <vector>

namespace support {

std::u16string unitsOf(const QString& text)
{
    const QChar* from = text.unicode();
    const std::size_t length = static_cast<std::size_t>(text.length());
    std::u16string units(length, u'\0');
    for (std::size_t i = 0; i < length; ++i)
        units[i] = static_cast<char16_t>(from[i].unicode());
    return units;
}

QString textOf(std::u16string_view units)
{
    if (units.empty())
        return QString("");
    std::vector<QChar> characters;
    characters.reserve(units.size());
    for (char16_t unit : units)
        characters.push_back(QChar(static_cast<unsigned short>(unit)));
    return QString(characters.data(), static_cast<unsigned int>(characters.size()));
}

namespace {

bool isBlank(char16_t unit)
{
    return (unit >= 0x0009 && unit <= 0x000d) || unit == 0x0020 || unit == 0x00a0 ||
           unit == 0x1680 || (unit >= 0x2000 && unit <= 0x200b) || unit == 0x2028 ||
           unit == 0x2029 || unit == 0x202f || unit == 0x3000;
}

} // namespace

std::u16string_view trimmedUnits(std::u16string_view units)
{
    while (!units.empty() && isBlank(units.front()))
        units.remove_prefix(1);
    while (!units.empty() && isBlank(units.back()))
        units.remove_suffix(1);
    return units;
}

} // namespace support
