// Decimal numbers in texts.
#ifndef SUPPORT_NUMBER_H
#define SUPPORT_NUMBER_H

#include <string_view>

#include <qstring.h>

namespace support {

// Reads a whole text as a decimal number: blanks (those of support::trimmed) around it, at most one
// sign right before the digits, and one digit or more. A digit is one of 0 to 9 or its counterpart
// at U+0660, 06F0, 0966, 09E6, 0A66, 0AE6, 0B66, 0C66, 0CE6, 0D66, 0E50, 0ED0, 0F20, FF10 and
// onwards; from U+0BE7 to U+0BEF stand 1 to 9. On failure, a number out of range included, the
// result is 0. `ok`, unless null, tells the two zeros apart.

// The range is that of int.
int toInt32(const QString& text, bool* ok = nullptr);

// The range is that of unsigned int; a minus sign is a failure, before 0 too.
unsigned int toUInt32(const QString& text, bool* ok = nullptr);
unsigned int toUInt32(std::u16string_view units, bool* ok = nullptr);

} // namespace support

#endif
