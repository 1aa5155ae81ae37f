// The commands as one table, from which the command line, its help and the shell's completion come.
#ifndef CTL_COMMAND_TABLE_H
#define CTL_COMMAND_TABLE_H

#include <vector>

#include "line/request.h"

namespace ctl {

// What one word after the command stands for.
enum class Word {
    Profile,
    NewProfile,
    Profiles,
    Assignments,
    File,
    Setting,
    SettingValue,
    Feature,
    FeatureValue
};

enum class Flag {
    Json,
    ShowSecrets,
    SecretsInJson, // of a command that shows no password to people
    Passwords,
    OnlyNames,
    All,
    RawExport,
    RawImport,
    Output,
    NewName,
    Replace,
    Hold,
    Timeout,
    Type
};

struct Command
{
    const char* group;
    const char* name; // "" for a group that is a command itself
    const char* help;
    std::vector<Word> words;
    std::vector<Flag> flags;
    int (*run)(const Request& request);
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
