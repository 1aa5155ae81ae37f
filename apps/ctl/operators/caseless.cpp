#include "operators/caseless.h"

#include <clocale>
#include <cwctype>

#include "base/utf8.h"

namespace ctl {

namespace {

// The program stays in the locale "C", in which only ASCII has letters.
locale_t unicodeLocale()
{
    static const locale_t unicode = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    return unicode;
}

char32_t lower(char32_t code)
{
    const bool isLarge = code >= U'A' && code <= U'Z';
    if (code < 0x80 || !unicodeLocale())
        return isLarge ? code - U'A' + U'a' : code;
    return static_cast<char32_t>(towlower_l(static_cast<wint_t>(code), unicodeLocale()));
}

bool isInWord(char32_t code)
{
    if (code < 0x80 || !unicodeLocale())
        return (code >= U'a' && code <= U'z') || (code >= U'0' && code <= U'9') || code >= 0x80;
    return iswalnum_l(static_cast<wint_t>(code), unicodeLocale()) != 0;
}

} // namespace

std::u32string caseless(std::string_view text)
{
    constexpr char32_t beyondUnicode = 0x110000;
    std::u32string result;
    while (!text.empty()) {
        const base::Utf8Character c = base::firstCharacter(text);
        result += c.length == 0 ? beyondUnicode + static_cast<unsigned char>(text.front())
                                : lower(c.code);
        text.remove_prefix(c.length == 0 ? 1 : c.length);
    }
    return result;
}

std::vector<std::u32string> caselessWords(std::string_view text)
{
    std::vector<std::u32string> words;
    bool isInside = false;
    for (const char32_t c : caseless(text)) {
        if (c != U' ' && !isInside)
            words.emplace_back();
        isInside = c != U' ';
        if (isInside)
            words.back() += c;
    }
    return words;
}

bool hasWord(const std::u32string& text, const std::u32string& word)
{
    for (std::size_t at = text.find(word); at != std::u32string::npos; at = text.find(word, at + 1))
        if (at == 0 || !isInWord(text[at - 1]))
            return true;
    return false;
}

} // namespace ctl
