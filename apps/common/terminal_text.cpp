#include "terminal_text.h"

#include <algorithm>
#include <clocale>
#include <cstdint>
#include <cstdio>
#include <cwchar>

#include "base/utf8.h"

namespace ctl {

namespace {

// Marks, embeddings, overrides and isolates of bidirectional text, and the two line separators.
bool turnsText(uint32_t code)
{
    return code == 0x200E || code == 0x200F || code == 0x061C ||
           (code >= 0x2028 && code <= 0x202E) || (code >= 0x2066 && code <= 0x2069);
}

std::string escape(uint32_t code)
{
    if (code == '\n')
        return "\\n";
    if (code == '\t')
        return "\\t";
    if (code == '\r')
        return "\\r";
    char text[16];
    std::snprintf(text, sizeof text, code < 0x80 ? "\\x%02X" : "\\u{%X}",
                  static_cast<unsigned>(code));
    return text;
}

std::string escapeByte(char byte)
{
    char text[8];
    std::snprintf(text, sizeof text, "\\x%02X", static_cast<unsigned char>(byte));
    return text;
}

// The C library's widths belong to a locale. The program stays in the locale "C", where nothing
// costs time at the start, and takes this one only when the first character beyond ASCII is met.
int wideWidth(uint32_t code)
{
    static const locale_t unicode = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    if (!unicode)
        return 1;
    const locale_t before = uselocale(unicode);
    const int width = wcwidth(static_cast<wchar_t>(code));
    uselocale(before);
    return width < 0 ? 1 : width;
}

// A character of the first plane, as JSON writes what is not to be shown.
std::string jsonEscape(const base::Utf8Character& c)
{
    char escaped[8];
    std::snprintf(escaped, sizeof escaped, "\\u%04X", static_cast<unsigned>(c.code) & 0xFFFFU);
    return escaped;
}

std::size_t columnsOf(const base::Utf8Character& c)
{
    return c.code < 0x80 ? 1U : static_cast<std::size_t>(wideWidth(c.code));
}

// How many bytes of the text fit into so many columns.
std::size_t fitting(std::string_view text, std::size_t columns)
{
    std::size_t bytes = 0;
    std::size_t width = 0;
    while (bytes < text.size()) {
        const base::Utf8Character c = base::firstCharacter(text.substr(bytes));
        width += columnsOf(c);
        if (width > columns)
            break;
        bytes += c.length == 0 ? 1 : c.length;
    }
    return bytes;
}

} // namespace

std::string printable(std::string_view text)
{
    std::string result;
    result.reserve(text.size());
    while (!text.empty()) {
        const base::Utf8Character c = base::firstCharacter(text);
        if (c.length == 0)
            result += escapeByte(text.front());
        else if (base::isControl(c.code) || turnsText(c.code))
            result += escape(c.code);
        else
            result += text.substr(0, c.length);
        text.remove_prefix(c.length == 0 ? 1 : c.length);
    }
    return result;
}

std::string inQuotes(std::string_view text)
{
    return '"' + printable(text) + '"';
}

std::string printableJson(std::string_view document)
{
    std::string result;
    result.reserve(document.size());
    while (!document.empty()) {
        const auto special = std::find_if(document.begin(), document.end(), [](char byte) {
            return static_cast<unsigned char>(byte) >= 0x7F;
        });
        const auto plain = static_cast<std::size_t>(special - document.begin());
        result += document.substr(0, plain);
        document.remove_prefix(plain);
        if (document.empty())
            break;
        const base::Utf8Character c = base::firstCharacter(document);
        const std::size_t length = std::max<std::size_t>(c.length, 1);
        if (c.length != 0 && (base::isControl(c.code) || turnsText(c.code)))
            result += jsonEscape(c);
        else
            result += document.substr(0, length);
        document.remove_prefix(length);
    }
    return result;
}

std::size_t displayWidth(std::string_view text)
{
    std::size_t width = 0;
    while (!text.empty()) {
        const base::Utf8Character c = base::firstCharacter(text);
        width += columnsOf(c);
        text.remove_prefix(c.length == 0 ? 1 : c.length);
    }
    return width;
}

std::string shortened(std::string_view text, std::size_t columns)
{
    return std::string(text.substr(0, fitting(text, columns - 1))) + "\u2026";
}

std::vector<std::string> folded(std::string_view text, std::size_t columns)
{
    std::vector<std::string> pieces;
    do {
        const std::size_t bytes =
            std::max<std::size_t>(fitting(text, columns), text.empty() ? 0 : 1);
        pieces.emplace_back(text.substr(0, bytes));
        text.remove_prefix(bytes);
    } while (!text.empty());
    return pieces;
}

} // namespace ctl
