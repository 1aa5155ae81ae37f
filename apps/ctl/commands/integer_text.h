// Integers as texts of the command line.
#ifndef CTL_INTEGER_TEXT_H
#define CTL_INTEGER_TEXT_H

#include <string>

namespace ctl {

// True for an integer in its form, of whatever size.
bool looksLikeInteger(const std::string& text);

// A whole decimal number of 32 bits; false when the text is none, and *value then says nothing.
bool integerOf(const std::string& text, int* value);

} // namespace ctl

#endif
