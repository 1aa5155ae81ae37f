#include "network/store/profile_name.h"

#include <cstdint>

#include "napi.h"

namespace store {

namespace {

// One row for each length of a UTF-8 sequence: how its first byte looks, and the smallest code
// point that needs this length (a smaller one is overlong).
struct SequenceForm
{
    uint8_t mask, lead;
    size_t length;
    uint32_t smallest;
};

const SequenceForm kForms[] = {
    {0x80, 0x00, 1, 0x0},
    {0xE0, 0xC0, 2, 0x80},
    {0xF0, 0xE0, 3, 0x800},
    {0xF8, 0xF0, 4, 0x10000},
};

const uint32_t kNoCodePoint = 0xFFFFFFFF;

} // namespace

static const SequenceForm* formOf(uint8_t lead)
{
    for (const SequenceForm& form : kForms)
        if ((lead & form.mask) == form.lead)
            return &form;
    return nullptr;
}

static bool isScalarValue(uint32_t code)
{
    return code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF);
}

// Takes the first code point off `text`.
static uint32_t takeCodePoint(std::string_view* text)
{
    const SequenceForm* form = formOf(static_cast<uint8_t>(text->front()));
    if (!form || text->size() < form->length)
        return kNoCodePoint;
    uint32_t code = static_cast<uint8_t>(text->front()) & static_cast<uint8_t>(~form->mask);
    for (size_t i = 1; i < form->length; ++i) {
        uint8_t byte = static_cast<uint8_t>((*text)[i]);
        if ((byte & 0xC0) != 0x80)
            return kNoCodePoint;
        code = code << 6 | (byte & 0x3F);
    }
    text->remove_prefix(form->length);
    return code >= form->smallest && isScalarValue(code) ? code : kNoCodePoint;
}

static bool mayStandInName(uint32_t code)
{
    bool isControl = code < 0x20 || (code >= 0x7F && code <= 0x9F);
    return code != kNoCodePoint && !isControl && code != '/';
}

bool isProfileName(std::string_view name)
{
    if (name.empty() || name.size() > NAPI_PROFILE_NAME_MAX || name.front() == '.')
        return false;
    while (!name.empty())
        if (!mayStandInName(takeCodePoint(&name)))
            return false;
    return true;
}

} // namespace store
