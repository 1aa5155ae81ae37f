#include "line/synonyms.h"

#include <cstring>
#include <vector>

#include "line/command_table.h"

namespace ctl {

namespace {

struct Synonym
{
    const char* word;
    const char* command;
};

const Synonym synonyms[] = {
    {"ls", "list"},       {"dir", "list"},     {"all", "list"},      {"add", "create"},
    {"new", "create"},    {"make", "create"},  {"add", "set"},       {"modify", "set"},
    {"mod", "set"},       {"edit", "set"},     {"change", "set"},    {"update", "set"},
    {"enable", "set"},    {"disable", "set"},  {"put", "set"},       {"rm", "delete"},
    {"remove", "delete"}, {"del", "delete"},   {"erase", "delete"},  {"unset", "delete"},
    {"reset", "delete"},  {"cp", "copy"},      {"clone", "copy"},    {"mv", "rename"},
    {"move", "rename"},   {"get", "show"},     {"cat", "show"},      {"info", "show"},
    {"view", "show"},     {"show", "get"},     {"print", "get"},     {"save", "export"},
    {"backup", "export"}, {"dump", "export"},  {"load", "import"},   {"restore", "import"},
    {"up", "open"},       {"connect", "open"}, {"dial", "open"},     {"start", "open"},
    {"find", "search"},   {"check", "doctor"}, {"verify", "doctor"}, {"status", "doctor"},
};

// What has no command of its own.
const Synonym answers[] = {
    {"version", "Did you mean \"vornctl --version\"?"},
    {"down", "A link is open as long as its \"vornctl link open --hold\" runs; Ctrl-C closes it."},
    {"close", "A link is open as long as its \"vornctl link open --hold\" runs; Ctrl-C closes it."},
    {"disconnect",
     "A link is open as long as its \"vornctl link open --hold\" runs; Ctrl-C closes it."},
};

bool isMeant(const Command& command, const std::string& word)
{
    const char* name = *command.name ? command.name : command.group;
    if (word == name)
        return true;
    for (const Synonym& synonym : synonyms)
        if (word == synonym.word && std::strcmp(synonym.command, name) == 0)
            return true;
    return false;
}

std::string quotedLine(const Command& command)
{
    return std::string("\"vornctl ") + command.group + (*command.name ? " " : "") + command.name +
           '"';
}

// "create" is nearer to what is meant by "add" than "set" is, where there is one.
bool hasOwnWord(const std::vector<const Command*>& found, const Command& command)
{
    for (const Command* other : found)
        if (std::strcmp(other->group, command.group) == 0)
            return true;
    return false;
}

} // namespace

std::string synonymAdvice(const std::string& group, const std::string& word)
{
    std::vector<const Command*> found;
    for (const Command& command : commands())
        if ((group.empty() || group == command.group) && isMeant(command, word) &&
            !hasOwnWord(found, command))
            found.push_back(&command);
    std::string lines;
    for (const Command* command : found)
        lines += (lines.empty()             ? ""
                  : command == found.back() ? " or "
                                            : ", ") +
                 quotedLine(*command);
    if (!lines.empty())
        return "Did you mean " + lines + '?';
    for (const Synonym& answer : answers)
        if (word == answer.word)
            return answer.command;
    return {};
}

} // namespace ctl
