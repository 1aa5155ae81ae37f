// The commands as one table, from which the command line, its help and the shell's completion come.
#ifndef CTL_COMMAND_TABLE_H
#define CTL_COMMAND_TABLE_H

#include <vector>

#include "line/arguments.h"
#include "line/request.h"

namespace ctl {

struct Command
{
    const char* group;
    const char* name; // "" for a group that is a command itself
    const char* help;
    std::vector<Word> words;
    std::vector<Flag> flags;
    int (*run)(const Request& request);
    // What --fields can name; null for a command without it.
    std::vector<std::string> (*fields)() = nullptr;
};

struct Group
{
    const char* name;
    const char* help;
};

const std::vector<Group>& groups();
const std::vector<Command>& commands();

} // namespace ctl

#endif
