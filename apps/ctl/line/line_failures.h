// What is wrong with a command line, told with what to type instead.
#ifndef CTL_LINE_FAILURES_H
#define CTL_LINE_FAILURES_H

#include <string>
#include <vector>

#include <CLI/App.hpp>

#include "failure.h"
#include "line/command_table.h"

namespace ctl {

// Throws the Failure of the first word that is no command where only commands can stand; everything
// else about the line is the parser's to say.
void checkCommandWords(const CLI::App& app, const std::vector<std::string>& words);

// Throws the Failure of a word that holds a password, without repeating it.
void refusePasswords(const std::vector<std::string>& words);

// Throws the Failure of a flag that is given a value: "--hold=5".
void refuseValuesOfFlags(const CLI::App& app, const std::vector<std::string>& words);

// Where more is told about a command: `"vornctl profile set --help" and "man vornctl" tell more.`
std::string helpPointer(const Command& command);

// The Failure of a line that the parser has refused with `error`.
Failure parseFailure(const CLI::App& app, const CLI::ParseError& error);

// The options of a command as they are typed: "--json".
std::vector<std::string> optionNames(const CLI::App& app);

} // namespace ctl

#endif
