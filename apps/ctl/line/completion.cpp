#include "line/completion.h"

#include <cstring>

#include "failure.h"
#include "line/command_table.h"
#include "line/line_failures.h"
#include "profile/store.h"
#include "profile/values.h"
#include "terminal_text.h"

namespace ctl {

namespace {

const char files[] = "@files";

const CLI::App* childOf(const CLI::App& app, const std::string& name)
{
    for (const CLI::App* child : app.get_subcommands([](const CLI::App*) { return true; }))
        if (child->get_name() == name)
            return child;
    return nullptr;
}

std::vector<std::string> childNames(const CLI::App& app)
{
    std::vector<std::string> names;
    for (const CLI::App* child : app.get_subcommands([](const CLI::App*) { return true; }))
        names.push_back(child->get_name());
    return names;
}

const CLI::Option* optionOf(const CLI::App& app, const std::string& word)
{
    if (word.size() < 2 || word[0] != '-')
        return nullptr;
    for (const CLI::Option* option : app.get_options())
        if (option->check_name(word))
            return option;
    return nullptr;
}

std::vector<std::string> profileNames()
{
    try {
        return listProfiles();
    } catch (const Failure&) {
        return {};
    }
}

// "apn=" for each field; behind "preference=" its values.
std::vector<std::string> assignmentsFor(const std::string& word)
{
    std::vector<std::string> result;
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

std::vector<std::string> wordsFor(Word word, const std::string& current)
{
    switch (word) {
    case Word::Profile:
    case Word::Profiles:
        return profileNames();
    case Word::Assignments:
        return assignmentsFor(current);
    case Word::File:
        return {files};
    case Word::FeatureValue:
        return {"on", "off"};
    case Word::NewProfile:
    case Word::Setting:
    case Word::SettingValue:
    case Word::Feature:
        break;
    }
    return {};
}

const Command* commandOf(const CLI::App& leaf)
{
    const CLI::App* parent = leaf.get_parent();
    for (const Command& command : commands())
        if ((leaf.get_name() == command.name && parent->get_name() == command.group) ||
            (*command.name == '\0' && leaf.get_name() == command.group))
            return &command;
    return nullptr;
}

bool takesMany(Word word)
{
    return word == Word::Assignments || word == Word::Profiles;
}

} // namespace

std::vector<std::string> candidates(const CLI::App& app, const std::vector<std::string>& words)
{
    if (words.size() > 1 && words[0] == "help") {
        const CLI::App* at = words.size() > 2 ? childOf(app, words[1]) : &app;
        return at && words.size() <= 3 ? childNames(*at) : std::vector<std::string>{};
    }
    const CLI::App* at = &app;
    const std::string& current = words.back();
    const CLI::Option* pending = nullptr; // an option that waits for its value
    std::size_t position = 0;
    bool onlyWords = false; // behind "--"
    for (std::size_t i = 0; i + 1 < words.size(); ++i) {
        const CLI::App* child = childOf(*at, words[i]);
        const CLI::Option* option = onlyWords ? nullptr : optionOf(*at, words[i]);
        if (pending)
            pending = nullptr;
        else if (child && !onlyWords)
            at = child;
        else if (words[i] == "--")
            onlyWords = true;
        else if (option)
            pending = option->get_items_expected_max() > 0 ? option : nullptr;
        else
            ++position;
    }
    if (pending)
        return {pending->get_type_name() == "FILE" ? std::vector<std::string>{files}
                                                   : std::vector<std::string>{}};
    if (!onlyWords && !current.empty() && current[0] == '-')
        return optionNames(*at);
    const Command* command = commandOf(*at);
    if (at == &app) {
        std::vector<std::string> names = childNames(app);
        names.emplace_back("help");
        return names;
    }
    if (!command || at->get_parent() == nullptr)
        return childNames(*at);
    if (command->words.empty())
        return {};
    const bool beyond = position >= command->words.size();
    if (beyond && !takesMany(command->words.back()))
        return {};
    return wordsFor(beyond ? command->words.back() : command->words[position], current);
}

} // namespace ctl
