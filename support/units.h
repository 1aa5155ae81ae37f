// Texts as UTF-16 code units. What is computed on them comes out the same whatever the text class
// is.
#ifndef SUPPORT_UNITS_H
#define SUPPORT_UNITS_H

#include <string>
#include <string_view>

#include <qstring.h>

namespace support {

// The code units of a text; none for a null text.
std::u16string unitsOf(const QString& text);

// A text of these code units, empty but not null where there are none.
QString textOf(std::u16string_view units);

// The units without the blanks at both ends: U+0009 to U+000D, U+0020, U+00A0, U+1680, U+2000 to
// U+200B, U+2028, U+2029, U+202F and U+3000.
std::u16string_view trimmedUnits(std::u16string_view units);

} // namespace support

#endif
