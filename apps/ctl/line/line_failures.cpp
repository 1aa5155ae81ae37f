#include "line/line_failures.h"

#include <algorithm>
#include <cstring>

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

// An option that nothing took: it is misspelt, or stands before the command that takes it.
Failure optionFailure(const Reached& reached, const std::string& option)
{
    const std::string more = '"' + reached.words + " --help\" and \"man vornctl\" tell more.";
    if (hasOption(*reached.app, option))
        return Failure(Exit::Usage,
                       "the option " + inQuotes(option) + " stands before its command.",
                       "Put it behind: \"" + reached.words + " " + option + "\".");
    const std::string closest = suggestion(option, optionNames(*reached.app));
    if (closest.empty() && isOptionBelow(*reached.app, option))
        return Failure(Exit::Usage,
                       "the option " + inQuotes(option) + " stands behind a command only.",
                       '"' + reached.words + "\" lists the commands.");
    return Failure(Exit::Usage, '"' + reached.words + "\" has no option " + inQuotes(option) + '.',
                   closest.empty() ? more : closest + ' ' + more);
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
    return twice == std::string::npos ? text : text.substr(0, twice) + " is given twice";
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
        const auto children = at->get_subcommands([](const CLI::App*) { return true; });
        if (children.empty())
            return;
        std::vector<std::string> names;
        for (const CLI::App* child : children)
            names.push_back(child->get_name());
        if (std::find(names.begin(), names.end(), word) == names.end()) {
            if (at == &app)
                names.emplace_back("help");
            const std::string before = at == &app ? "" : " of \"" + at->get_name() + '"';
            std::string advice = suggestion(word, names);
            if (advice.empty())
                advice = "\"vornctl " + (at == &app ? "" : at->get_name() + ' ') +
                         "--help\" lists the commands.";
            throw Failure(Exit::Usage, "there is no command " + inQuotes(word) + before + '.',
                          advice);
        }
        at = at->get_subcommand(word);
    }
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
    const std::string more = "--help\" and \"man vornctl\" tell more.";
    // What nothing took is what the person has to hear about first.
    // Of an option with a value, which may be a secret, only the option is told.
    if (const std::string* option = firstOption(unknown))
        return optionFailure(reached, option->substr(0, option->find('=')));
    if (std::strcmp(error.what(), "A subcommand is required") == 0)
        return Failure(Exit::Usage,
                       "a command is missing; \"" + reached.words + "\" has these commands:",
                       commandList(*reached.app) + '"' + reached.words + " COMMAND " + more);
    if (!unknown.empty())
        return Failure(Exit::Usage, inQuotes(unknown.front()) + " is one word too many.",
                       '"' + reached.words + ' ' + more);
    return Failure(Exit::Usage, problemOf(error) + '.', '"' + reached.words + ' ' + more);
}

} // namespace ctl
