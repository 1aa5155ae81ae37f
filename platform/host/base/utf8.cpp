#include "base/utf8.h"

namespace base {

namespace {

// One row for each length of a sequence: how its first byte looks, and the smallest code that needs
// this length.
struct SequenceForm
{
    unsigned char mask, lead;
    std::size_t length;
    uint32_t smallest;
};

const SequenceForm forms[] = {
    {0x80, 0x00, 1, 0x0},
    {0xE0, 0xC0, 2, 0x80},
    {0xF0, 0xE0, 3, 0x800},
    {0xF8, 0xF0, 4, 0x10000},
};

const SequenceForm* formOf(unsigned char lead)
{
    for (const SequenceForm& form : forms)
        if ((lead & form.mask) == form.lead)
            return &form;
    return nullptr;
}

bool isScalarValue(uint32_t code)
{
    return code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF);
}

} // namespace

Utf8Character firstCharacter(std::string_view text)
{
    const auto first = static_cast<unsigned char>(text.front());
    const SequenceForm* form = formOf(first);
    if (!form || text.size() < form->length)
        return {};
    uint32_t code = first & static_cast<unsigned char>(~form->mask);
    for (std::size_t i = 1; i < form->length; ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        if ((byte & 0xC0) != 0x80)
            return {};
        code = code << 6 | (byte & 0x3F);
    }
    if (code < form->smallest || !isScalarValue(code))
        return {};
    return {code, form->length};
}

bool isUtf8(std::string_view text)
{
    while (!text.empty()) {
        const Utf8Character first = firstCharacter(text);
        if (first.length == 0)
            return false;
        text.remove_prefix(first.length);
    }
    return true;
}

bool isControl(uint32_t code)
{
    return code < 0x20 || (code >= 0x7F && code <= 0x9F);
}

bool hasControls(std::string_view text)
{
    while (!text.empty()) {
        const Utf8Character first = firstCharacter(text);
        if (first.length != 0 && isControl(first.code))
            return true;
        text.remove_prefix(first.length == 0 ? 1 : first.length);
    }
    return false;
}

} // namespace base
