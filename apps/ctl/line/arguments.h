// What may stand behind a command: its words and its options, as two tables.
#ifndef CTL_ARGUMENTS_H
#define CTL_ARGUMENTS_H

#include <string>
#include <vector>

#include "line/request.h"

namespace ctl {

// What one word after the command stands for.
enum class Word {
    Profile,
    NewProfile,
    OtherName,
    Profiles,
    ProfilesToDelete,
    Assignments,
    SearchWords,
    File,
    Setting,
    Settings,
    SettingValue,
    Feature,
    Features,
    FeatureValue,
    Device
};

// A flag of the table of commands: one option, or several that belong together.
enum class Flag {
    Json,
    ShowSecrets,
    SecretsInJson, // of a command that shows no password to people
    Passwords,
    Operator,
    Plan,
    FromSim,
    OnlyNames,
    Fields,
    Terse,
    All,
    RawExport,
    RawImport,
    Output,
    NewName,
    Replace,
    Hold,
    Timeout,
    Verbose,
    Type
};

struct WordMeaning
{
    Word word;
    const char* name; // as the help writes it
    const char* help;
    std::string Request::*text;               // where it goes: one word,
    std::vector<std::string> Request::*texts; // or any number of them
    bool isRequired;
};

struct Option
{
    Flag flag;
    const char* names; // as the parser takes them: "--output,-o"
    const char* value; // what its value is called; "" for one that takes none
    const char* help;
    bool Request::*on;                    // where it goes: that it is there,
    std::string Request::*text;           // or its value
    std::string (*problem)(std::string&); // what is wrong with a value; null when any will do
};

const WordMeaning& meaningOf(Word word);

const std::vector<Option>& options();

// The option of this name, "--json" or "-o"; null when there is none.
const Option* findOption(const std::string& name);

// The values that --type takes.
extern const std::vector<std::string> settingTypes;

} // namespace ctl

#endif
