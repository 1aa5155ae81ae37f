// Text that goes to a terminal: how wide it is, and what of it must not reach the terminal raw.
#ifndef COMMON_TERMINAL_TEXT_H
#define COMMON_TERMINAL_TEXT_H

#include <string>
#include <string_view>
#include <vector>

namespace ctl {

// The text with everything a terminal would obey instead of show written as an escape: control
// characters (\n, \t, \x1B, \u{9B}), characters that turn the direction of writing (\u{202E}), and
// bytes that are no UTF-8 (\xFF).
std::string printable(std::string_view text);

// printable() in double quotes.
std::string inQuotes(std::string_view text);

// A JSON document whose strings keep every character, with those that printable() would escape
// written as JSON escapes (\u009B). The newlines between its parts stay.
std::string printableJson(std::string_view document);

// The number of terminal columns that a printable() text takes, in any locale: 2 for a wide East
// Asian character, 0 for a combining one.
std::size_t displayWidth(std::string_view text);

// As much of the beginning of a printable() text as fits into so many columns with an ellipsis
// behind it.
std::string shortened(std::string_view text, std::size_t columns);

// A printable() text in pieces of at most so many columns each; one that fits is one piece.
std::vector<std::string> folded(std::string_view text, std::size_t columns);

} // namespace ctl

#endif
