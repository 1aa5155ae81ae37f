// Texts in UTF-8, character by character.
#ifndef BASE_UTF8_H
#define BASE_UTF8_H

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace base {

struct Utf8Character
{
    uint32_t code = 0;
    std::size_t length = 0; // in bytes; 0 when the bytes are no UTF-8
};

// The first character of a text that is not empty. No UTF-8 are sequences that are cut, longer than
// needed, surrogates, or above U+10FFFF.
Utf8Character firstCharacter(std::string_view text);

bool isUtf8(std::string_view text);

// U+0000 to U+001F, and U+007F to U+009F.
bool isControl(uint32_t code);

// Bytes that are no UTF-8 are passed over.
bool hasControls(std::string_view text);

} // namespace base

#endif
