// How the tests of this folder write texts.
#ifndef TESTS_SUPPORT_NOTATION_H
#define TESTS_SUPPORT_NOTATION_H

#include <cstdio>
#include <ostream>
#include <string>

#include <qstring.h>

using namespace std::string_literals;

// A text as the tables show it: NULL for a null one, printable ASCII as it is, any other code unit
// as four hexadecimal digits in angle brackets, for instance caf<00e9>.
inline std::string shown(const QString& text)
{
    if (text.isNull())
        return "NULL";
    std::string notation;
    for (int i = 0; i < static_cast<int>(text.length()); ++i) {
        const unsigned int unit = text.unicode()[i].unicode();
        char hexadecimal[8];
        std::snprintf(hexadecimal, sizeof hexadecimal, "<%04x>", unit);
        if (unit > 0x20 && unit < 0x7f && unit != '<')
            notation += static_cast<char>(unit);
        else
            notation += unit == 0x20 ? " " : hexadecimal;
    }
    return notation;
}

// A text of these code units, made without the helpers under test; empty, not null, for none.
inline QString made(const std::u16string& units)
{
    QString text("");
    for (char16_t unit : units)
        text += QChar(static_cast<unsigned short>(unit));
    return text;
}

// Bytes as hexadecimal numbers, for instance "61 c3 a9".
inline std::string hexadecimal(const std::string& bytes)
{
    std::string notation;
    for (char byte : bytes) {
        char two[4];
        std::snprintf(two, sizeof two, "%02x", static_cast<unsigned char>(byte));
        notation += (notation.empty() ? "" : " ") + std::string(two);
    }
    return notation;
}

#endif
