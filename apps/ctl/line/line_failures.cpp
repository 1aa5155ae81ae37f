#include "line/line_failures.h"

#include <algorithm>
#include <cstring>

#include "line/synonyms.h"
#include "profile/fields.h"
#include "suggestion.h"
#include "terminal_text.h"

namespace ctl {

namespace {

// How far the parser came: the last command of the line, and the words that lead to it.
struct Reached
{
    const CLI::App* app;
    std::string words;
};

Reached reachedCommand(const CLI::App& app)
{
    Reached reached = {&app, app.get_name()};
    while (!reached.app->get_subcommands().empty()) {
        reached.app = reached.app->get_subcommands().back();
        reached.words += ' ' + reached.app->get_name();
    }
    return reached;
}

// One command a line with what it does, the lines below the first indented as an advice is.
std::string commandList(const CLI::App& app)
{
    const auto children = app.get_subcommands([](const CLI::App*) { return true; });
    std::size_t width = 0;
    for (const CLI::App* child : children)
        width = std::max(width, child->get_name().size());
    std::string text;
    for (const CLI::App* child : children) {
        const std::string name = child->get_name();
        text +=
            name + std::string(width + 2 - name.size(), ' ') + child->get_description() + "\n  ";
    }
    return text;
}

bool hasOption(const CLI::App& app, const std::string& option)
{
    const std::vector<std::string> names = optionNames(app);
    return std::find(names.begin(), names.end(), option) != names.end();
}

bool isOptionBelow(const CLI::App& app, const std::string& option)
{
    for (const CLI::App* child : app.get_subcommands([](const CLI::App*) { return true; }))
        if (hasOption(*child, option) || isOptionBelow(*child, option))
            return true;
    return false;
}

std::string helpOf(const std::string& command)
{
    return '"' + command + " --help\" and \"man vornctl\" tell more.";
}

// What follows such a beginning without a blank may be a password.
const char* secretBeginning(const std::string& option)
{
    for (const char* beginning : {"--csd-password", "--password", "--passwd", "--pass", "-p"})
        if (option.compare(0, std::strlen(beginning), beginning) == 0)
            return beginning;
    return nullptr;
}

// Of an option with a value, which may be a secret, only the option is told.
std::string shownOption(const std::string& option)
{
    const char* beginning = secretBeginning(option);
    const std::string rest = beginning ? option.substr(std::strlen(beginning)) : "";
    const bool isWhole = rest.empty() || rest.compare(0, 2, "-f") == 0;
    return inQuotes(isWhole ? option : std::string(beginning) + "...");
}

// What an option that nothing took may have been meant as, besides a misspelt one.
std::string meantAs(const CLI::App& app, const std::string& option)
{
    // There may be nothing but dashes.
    const std::string name = option.substr(std::min(option.find_first_not_of('-'), option.size()));
    const Field* field = findField(name.c_str());
    const bool takesFields = app.get_option_no_throw("FIELD=VALUE") != nullptr;
    if (takesFields && field && isVisible(*field) && field->kind != Kind::Secret)
        return "A field is given without dashes: " + name + "=VALUE. ";
    if (option[1] != '-')
        return "A word that begins with \"-\" is an option; put \"--\" before a name or a value "
               "that begins so. ";
    return {};
}

// An option that nothing took: it is misspelt, or stands before the command that takes it.
Failure optionFailure(const Reached& reached, const std::string& option)
{
    if (hasOption(*reached.app, option))
        return Failure(Exit::Usage,
                       "the option " + inQuotes(option) + " stands before its command.",
                       "Put it behind: \"" + reached.words + " " + option + "\".");
    std::string closest = suggestion(option, optionNames(*reached.app));
    if (closest.empty() && isOptionBelow(*reached.app, option))
        return Failure(Exit::Usage,
                       "the option " + inQuotes(option) + " stands behind a command only.",
                       '"' + reached.words + "\" lists the commands.");
    closest = closest.empty() ? meantAs(*reached.app, option) : closest + ' ';
    return Failure(Exit::Usage,
                   '"' + reached.words + "\" has no option " + shownOption(option) + '.',
                   closest + helpOf(reached.words));
}

const std::string* firstOption(const std::vector<std::string>& words)
{
    for (const std::string& word : words)
        if (word.size() > 1 && word[0] == '-')
            return &word;
    return nullptr;
}

// The parser's own sentence about an option is not of the tone of the others.
std::string problemOf(const CLI::ParseError& error)
{
    const std::string text = printable(error.what());
    const std::size_t twice = text.find(": At Most 1 required");
    if (twice != std::string::npos)
        return text.substr(0, twice) + " is given twice";
    const std::size_t missing = text.find(": 1 required ");
    if (missing == std::string::npos)
        return text;
    const std::size_t value = missing + std::strlen(": 1 required ");
    return text.substr(0, missing) +
           " takes a value: " + text.substr(value, text.find(' ', value) - value);
}

using Children = std::vector<const CLI::App*>;

Children childrenOf(const CLI::App& app)
{
    return app.get_subcommands([](const CLI::App*) { return true; });
}

Failure noCommand(const CLI::App& app, const CLI::App& at, const std::string& word)
{
    const bool isOutermost = &at == &app;
    std::vector<std::string> names;
    for (const CLI::App* child : childrenOf(at))
        names.push_back(child->get_name());
    if (isOutermost)
        names.emplace_back("help");
    std::string advice = synonymAdvice(isOutermost ? "" : at.get_name(), word);
    if (advice.empty())
        advice = suggestion(word, names);
    if (advice.empty())
        advice = "\"vornctl " + (isOutermost ? "" : at.get_name() + ' ') +
                 "--help\" lists the commands.";
    return Failure(Exit::Usage,
                   "there is no command " + inQuotes(word) +
                       (isOutermost ? "" : " of \"" + at.get_name() + '"') + '.',
                   advice);
}

} // namespace

std::vector<std::string> optionNames(const CLI::App& app)
{
    std::vector<std::string> names;
    for (const CLI::Option* option : app.get_options())
        for (const std::string& name : option->get_lnames())
            names.push_back("--" + name);
    return names;
}

void checkCommandWords(const CLI::App& app, const std::vector<std::string>& words)
{
    const CLI::App* at = &app;
    for (const std::string& word : words) {
        if (word.compare(0, 1, "-") == 0)
            return;
        const Children children = childrenOf(*at);
        if (children.empty())
            return;
        const auto found =
            std::find_if(children.begin(), children.end(),
                         [&](const CLI::App* child) { return child->get_name() == word; });
        if (found == children.end())
            throw noCommand(app, *at, word);
        at = *found;
    }
}

void refuseValuesOfFlags(const CLI::App& app, const std::vector<std::string>& words)
{
    std::string command = app.get_name();
    const CLI::App* at = &app;
    for (const std::string& word : words) {
        if (word == "--")
            return;
        const Children children = childrenOf(*at);
        for (const CLI::App* child : children)
            if (child->get_name() == word) {
                at = child;
                command += ' ' + word;
                break;
            }
        const std::size_t equals = word.find('=');
        const std::string name = word.substr(0, equals);
        const Option* option = findOption(name);
        const bool isFlag = name == "--help" || name == "--version" || (option && option->on);
        if (isFlag && equals != std::string::npos)
            throw Failure(Exit::Usage, inQuotes(name) + " takes no value.",
                          "Give " + name + " alone, or leave it out. " + helpOf(command));
    }
}

std::string helpPointer(const Command& command)
{
    return helpOf(std::string("vornctl ") + command.group + (*command.name ? " " : "") +
                  command.name);
}

void refusePasswords(const std::vector<std::string>& words)
{
    for (const std::string& word : words) {
        const std::string option = word.substr(0, word.find('='));
        if (word == "--")
            return;
        if (option == word || (option != "--password" && option != "--csd-password"))
            continue;
        throw Failure(Exit::Usage,
                      "a password does not belong on the command line, where others can read it.",
                      "Use " + option + " alone to be asked for it, or " + option + "-file FILE.");
    }
}

Failure parseFailure(const CLI::App& app, const CLI::ParseError& error)
{
    const Reached reached = reachedCommand(app);
    const std::vector<std::string> unknown = app.remaining(true);
    // What nothing took is what the person has to hear about first.
    if (const std::string* option = firstOption(unknown))
        return optionFailure(reached, option->substr(0, option->find('=')));
    if (std::strcmp(error.what(), "A subcommand is required") == 0)
        return Failure(Exit::Usage,
                       "a command is missing; \"" + reached.words + "\" has these commands:",
                       commandList(*reached.app) + helpOf(reached.words + " COMMAND"));
    if (!unknown.empty())
        return Failure(Exit::Usage, inQuotes(unknown.front()) + " is one word too many.",
                       helpOf(reached.words));
    return Failure(Exit::Usage, problemOf(error) + '.', helpOf(reached.words));
}

} // namespace ctl
