#include "support/number.h"

#include <limits>

#include "support/units.h"

namespace support {

namespace {

// Runs of digits in ascending order; `value` is that of the first.
struct Digits
{
    char16_t first;
    char16_t last;
    int value;
};

constexpr Digits digitRuns[] = {
    {0x0030, 0x0039, 0}, {0x0660, 0x0669, 0}, {0x06f0, 0x06f9, 0}, {0x0966, 0x096f, 0},
    {0x09e6, 0x09ef, 0}, {0x0a66, 0x0a6f, 0}, {0x0ae6, 0x0aef, 0}, {0x0b66, 0x0b6f, 0},
    {0x0be7, 0x0bef, 1}, {0x0c66, 0x0c6f, 0}, {0x0ce6, 0x0cef, 0}, {0x0d66, 0x0d6f, 0},
    {0x0e50, 0x0e59, 0}, {0x0ed0, 0x0ed9, 0}, {0x0f20, 0x0f29, 0}, {0xff10, 0xff19, 0},
};

// The value of a digit, -1 where the unit is none.
int digitValue(char16_t unit)
{
    for (const Digits& run : digitRuns) {
        if (unit >= run.first && unit <= run.last)
            return run.value + unit - run.first;
    }
    return -1;
}

struct Range
{
    long long least;
    long long most;
};

bool parseDigits(std::u16string_view units, bool negative, const Range& range, long long& number)
{
    long long value = 0;
    for (char16_t unit : units) {
        const int digit = digitValue(unit);
        if (digit < 0)
            return false;
        value = value * 10 + (negative ? -digit : digit);
        if (value < range.least || value > range.most)
            return false;
    }
    number = value;
    return !units.empty();
}

long long parse(std::u16string_view units, const Range& range, bool* ok)
{
    units = trimmedUnits(units);
    const bool negative = !units.empty() && units.front() == u'-' && range.least < 0;
    if (negative || (!units.empty() && units.front() == u'+'))
        units.remove_prefix(1);
    long long number = 0;
    const bool parsed = parseDigits(units, negative, range, number);
    if (ok)
        *ok = parsed;
    return parsed ? number : 0;
}

} // namespace

int toInt32(const QString& text, bool* ok)
{
    const Range range = {std::numeric_limits<int>::min(), std::numeric_limits<int>::max()};
    return static_cast<int>(parse(unitsOf(text), range, ok));
}

unsigned int toUInt32(const QString& text, bool* ok)
{
    return toUInt32(unitsOf(text), ok);
}

unsigned int toUInt32(std::u16string_view units, bool* ok)
{
    const Range range = {0, std::numeric_limits<unsigned int>::max()};
    return static_cast<unsigned int>(parse(units, range, ok));
}

} // namespace support
