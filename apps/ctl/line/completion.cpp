#include "line/completion.h"

#include <cstring>
#include <set>

#include "commands/device_fields.h"
#include "failure.h"
#include "line/command_table.h"
#include "line/line_failures.h"
#include "operators/operator_search.h"
#include "profile/store.h"
#include "profile/values.h"
#include "settings/settings_host.h"
#include "terminal_text.h"

namespace ctl {

namespace {

using Names = std::vector<std::string>;

const char files[] = "@files";

Names childNames(const CLI::App& app)
{
    Names names;
    for (const CLI::App* child : app.get_subcommands([](const CLI::App*) { return true; }))
        names.push_back(child->get_name());
    return names;
}

const CLI::App* childOf(const CLI::App& app, const std::string& name)
{
    for (const CLI::App* child : app.get_subcommands([](const CLI::App*) { return true; }))
        if (child->get_name() == name)
            return child;
    return nullptr;
}

const Command* commandOf(const CLI::App& leaf)
{
    const CLI::App* parent = leaf.get_parent();
    for (const Command& command : commands())
        if (parent && ((leaf.get_name() == command.name && parent->get_name() == command.group) ||
                       (*command.name == '\0' && leaf.get_name() == command.group)))
            return &command;
    return nullptr;
}

// What the words before the last one say.
struct Line
{
    const CLI::App* app;
    const Option* pending = nullptr; // an option that waits for its value
    Names words = {};                // behind the command
    bool onlyWords = false;          // behind "--"
    std::string operatorWords = {};  // the value of --operator
};

// What an option's value tells of what may follow.
void takeValue(Line& line, const Option& option, const std::string& value)
{
    if (option.flag == Flag::Operator)
        line.operatorWords = value;
}

// "--json", "--timeout", behind which a value follows, or "--timeout=5".
void takeOption(Line& line, const std::string& word)
{
    const std::size_t equals = word.find('=');
    const Option* option = findOption(word.substr(0, equals));
    if (!option || option->on)
        return;
    if (equals == std::string::npos)
        line.pending = option;
    else
        takeValue(line, *option, word.substr(equals + 1));
}

Line lineOf(const CLI::App& app, const Names& words)
{
    Line line = {&app};
    for (std::size_t i = 0; i + 1 < words.size(); ++i) {
        const CLI::App* child = childOf(*line.app, words[i]);
        const bool isOption = !line.onlyWords && words[i].size() > 1 && words[i][0] == '-';
        if (line.pending) {
            takeValue(line, *line.pending, words[i]);
            line.pending = nullptr;
        } else if (child && !line.onlyWords)
            line.app = child;
        else if (isOption && words[i] == "--")
            line.onlyWords = true;
        else if (isOption)
            takeOption(line, words[i]);
        else
            line.words.push_back(words[i]);
    }
    return line;
}

Names profileNames()
{
    try {
        return listProfiles();
    } catch (const Failure&) {
        return {};
    }
}

Names settingNames()
{
    settingshost::Settings settings;
    settingshost::listSettings(&settings);
    Names names;
    for (const auto& [name, setting] : settings)
        names.push_back(name);
    return names;
}

Names settingValues(const std::string& name)
{
    settingshost::Setting setting;
    const bool isBoolean = settingshost::getSetting(name, &setting).isOk() &&
                           setting.type == settingshost::Setting::Type::Boolean;
    return isBoolean ? Names{"true", "false"} : Names{};
}

std::vector<Operator> operators()
{
    try {
        return readOperators();
    } catch (const Failure&) {
        return {};
    }
}

Names operatorNames()
{
    std::set<std::string> names;
    for (const Operator& each : operators())
        names.insert(each.names.begin(), each.names.end());
    return {names.begin(), names.end()};
}

// Of the operators that are named before, by their own names where they have some.
Names planNames(const std::string& operatorWords)
{
    const std::vector<Operator> list = operators();
    Operators all;
    for (const Operator& each : list)
        all.push_back(&each);
    std::set<std::string> names;
    for (const Operator* each : namedOperators(all, operatorWords))
        for (const AccessPoint& point : each->accessPoints)
            names.insert(point.plan.empty() ? point.apn : point.plan);
    return {names.begin(), names.end()};
}

Names featureNumbers()
{
    settingshost::Features features;
    settingshost::listFeatures(&features);
    Names numbers;
    for (const auto& [number, isAvailable] : features)
        numbers.push_back(std::to_string(number));
    return numbers;
}

// "apn=" for each field; behind "preference=" its values.
Names assignmentsFor(const std::string& word)
{
    Names result;
    const std::string name = word.substr(0, word.find('='));
    const Field* field = findField(name.c_str());
    if (name.size() < word.size() && field && field->choices)
        for (const Choice* choice = field->choices; choice->text; ++choice)
            result.push_back(name + '=' + choice->text);
    if (name.size() == word.size())
        for (const Field& each : fields())
            if (isVisible(each) && each.kind != Kind::Secret)
                result.push_back(std::string(each.name) + '=');
    return result;
}

Names wordsFor(Word word, const Line& line, const std::string& current)
{
    switch (word) {
    case Word::Profile:
    case Word::Profiles:
    case Word::ProfilesToDelete:
        return profileNames();
    case Word::Assignments:
        return assignmentsFor(current);
    case Word::File:
        return {files};
    case Word::SearchWords:
        return operatorNames();
    case Word::Setting:
    case Word::Settings:
        return settingNames();
    case Word::SettingValue:
        return settingValues(line.words[0]);
    case Word::Feature:
    case Word::Features:
        return featureNumbers();
    case Word::FeatureValue:
        return {"on", "off"};
    case Word::Device:
        return deviceNames();
    case Word::NewProfile:
    case Word::OtherName:
        break;
    }
    return {};
}

// Behind "apn,dns1," every field, with what stands before it.
Names fieldLists(const Command* command, const std::string& current)
{
    Names lists;
    const std::size_t comma = current.rfind(',');
    const std::string before = comma == std::string::npos ? "" : current.substr(0, comma + 1);
    if (command && command->fields)
        for (const std::string& field : command->fields())
            lists.push_back(before + field);
    return lists;
}

Names valuesOf(const Option& option, const Line& line, const std::string& current)
{
    const Command* command = commandOf(*line.app);
    if (option.flag == Flag::Operator)
        return operatorNames();
    if (option.flag == Flag::Plan && !line.operatorWords.empty())
        return planNames(line.operatorWords);
    if (option.flag == Flag::Type)
        return settingTypes;
    if (option.flag == Flag::Fields)
        return fieldLists(command, current);
    return std::strcmp(option.value, "FILE") == 0 ? Names{files} : Names{};
}

// "--json", or behind "--type=" its values.
Names optionsFor(const Line& line, const std::string& current)
{
    const std::size_t equals = current.find('=');
    if (equals == std::string::npos)
        return optionNames(*line.app);
    const std::string lead = current.substr(0, equals + 1);
    const Option* option = findOption(current.substr(0, equals));
    Names values;
    if (option && !option->on)
        for (const std::string& value : valuesOf(*option, line, current.substr(equals + 1)))
            values.push_back(value == files ? value : lead + value);
    return values;
}

Names wordsBehind(const Command& command, const Line& line, const std::string& current)
{
    if (command.words.empty())
        return {};
    const std::size_t position = line.words.size();
    const bool beyond = position >= command.words.size();
    const Word last = command.words.back();
    if (beyond && !meaningOf(last).texts)
        return {};
    return wordsFor(beyond ? last : command.words[position], line, current);
}

} // namespace

std::vector<std::string> candidates(const CLI::App& app, const std::vector<std::string>& words)
{
    if (words.size() > 1 && words[0] == "help") {
        const CLI::App* at = words.size() > 2 ? childOf(app, words[1]) : &app;
        return at && words.size() <= 3 ? childNames(*at) : Names{};
    }
    const Line line = lineOf(app, words);
    const std::string& current = words.back();
    const Command* command = commandOf(*line.app);
    if (line.pending)
        return valuesOf(*line.pending, line, current);
    if (!line.onlyWords && !current.empty() && current[0] == '-')
        return optionsFor(line, current);
    if (command)
        return wordsBehind(*command, line, current);
    Names names = childNames(*line.app);
    if (line.app == &app)
        names.emplace_back("help");
    return names;
}

} // namespace ctl
