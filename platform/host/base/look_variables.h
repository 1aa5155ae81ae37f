// The variables of the environment that choose how the phone's screen looks and is worked, and what
// they may say.
#ifndef BASE_LOOK_VARIABLES_H
#define BASE_LOOK_VARIABLES_H

#include <array>
#include <string>
#include <string_view>

namespace base {

struct LookVariable
{
    const char* name;
    const char* known; // what it may say, in words: "full or reduced"
    bool (*isKnown)(std::string_view value);
};

// VORN_THEME, VORN_ACCENT, VORN_TEXT_SIZE, VORN_MOTION, VORN_LANG, VORN_KEYPAD, VORN_SCREEN and
// VORN_BODY. An empty value counts as unset and is known.
extern const std::array<LookVariable, 8> lookVariables;

// What such a variable says now; "" when it is unset or what it says is not known, and for the name
// of another variable.
std::string lookValue(std::string_view name);

// One line, without its end, for a variable whose value is not known; "" for the others. For
// instance: VORN_MOTION=none is ignored; it may be full or reduced
std::string lookComplaint(const LookVariable& variable);

// The sides in pixels of "WIDTHxHEIGHT", each 160 to 4096; false, with the sides unchanged, for
// any other text.
bool readScreenSize(std::string_view text, int& width, int& height);

} // namespace base

#endif
