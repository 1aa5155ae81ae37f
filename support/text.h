// Texts and bytes, trimming and comparing.
#ifndef SUPPORT_TEXT_H
#define SUPPORT_TEXT_H

#include <string>

#include <qstring.h>

namespace support {

// Decodes `size` bytes of UTF-8, or those up to the first NUL when `size` is negative. Each byte
// that belongs to no well-formed sequence (overlong forms, surrogates, numbers above U+10FFFF and
// truncated sequences are none) gives one U+FFFD, and what follows it is kept. A byte order mark is
// kept, and so is a NUL inside `size`. A null pointer gives a null text, no bytes an empty one.
QString fromUtf8(const char* bytes, int size = -1);

// Encodes a text in UTF-8, with '?' for a surrogate that stands alone. A null text gives no bytes.
std::string utf8(const QString& text);

// Encodes a text in ISO 8859-1, with '?' for each code unit above U+00FF.
std::string latin1(const QString& text);

// The text without the blanks at both ends: U+0009 to U+000D, U+0020, U+00A0, U+1680, U+2000 to
// U+200B, U+2028, U+2029, U+202F and U+3000. Nothing but blanks gives an empty text, a null text
// stays null.
QString trimmed(const QString& text);

// Compares by code units: -1, 0 or 1 as `a` comes before, equals or comes after `b`. A null text
// comes after every other one, the empty text included.
int compare(const QString& a, const QString& b);

} // namespace support

#endif
