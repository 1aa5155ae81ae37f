#include "line/command_line.h"

#include <algorithm>
#include <cstring>

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

#include "failure.h"
#include "line/command_table.h"
#include "line/completion.h"
#include "line/hidden_word.h"
#include "line/line_failures.h"
#include "output.h"
#include "profile/values.h"

namespace ctl {

namespace {

std::string exitStatusHelp()
{
    std::string text = "Exit status:\n";
    for (const ExitMeaning& exit : exitMeanings()) {
        const std::string number = std::to_string(static_cast<int>(exit.status));
        text += std::string(5 - number.size(), ' ') + number + "  " + exit.meaning + '\n';
    }
    return text;
}

std::string fieldHelp()
{
    std::string text = "Fields:\n";
    for (const Field& field : fields()) {
        if (!isVisible(field))
            continue;
        const std::string name = field.name;
        text += "  " + name + std::string(14 - name.size(), ' ') + rangeText(field) + '\n';
    }
    return text + "A password is never given as an argument; \"password=\" removes it.\n";
}

void addWord(CLI::App& app, Word word, Request& request)
{
    const WordMeaning& meaning = meaningOf(word);
    CLI::Option* option = meaning.text
                              ? app.add_option(meaning.name, request.*meaning.text, meaning.help)
                              : app.add_option(meaning.name, request.*meaning.texts, meaning.help);
    option->required(meaning.isRequired)->type_name("");
    if (word == Word::Assignments)
        app.footer(fieldHelp());
}

void addOption(CLI::App& app, const Option& option, Request& request)
{
    if (option.on) {
        app.add_flag(option.names, request.*option.on, option.help);
        return;
    }
    CLI::Option* added = app.add_option(option.names, request.*option.text, option.help);
    added->type_name(option.value);
    if (option.problem)
        added->check(CLI::Validator(option.problem, ""));
}

void addRules(CLI::App& app, Flag flag)
{
    if (flag == Flag::SecretsInJson)
        app.get_option("--show-secrets")->needs(app.get_option("--json"));
    if (flag == Flag::RawExport)
        app.get_option("--raw")->excludes(app.get_option("--json"));
    if (flag == Flag::Terse)
        app.get_option("--terse")->excludes(app.get_option("--json"));
    if (flag == Flag::OnlyNames)
        app.get_option("--names")->excludes(app.get_option("--fields"));
}

void addCommand(CLI::App& app, const Command& command, Request& request, const Command*& chosen)
{
    for (const Word word : command.words)
        addWord(app, word, request);
    for (const Flag flag : command.flags)
        for (const Option& option : options())
            if (option.flag == flag)
                addOption(app, option, request);
    for (const Flag flag : command.flags)
        addRules(app, flag);
    app.callback([&command, &chosen] { chosen = &command; });
}

void addCommands(CLI::App& app, Request& request, const Command*& chosen)
{
    for (const Group& group : groups()) {
        CLI::App* parent = app.add_subcommand(group.name, group.help)->group("Commands");
        for (const Command& command : commands()) {
            if (std::strcmp(command.group, group.name) != 0)
                continue;
            const bool single = *command.name == '\0';
            if (!single)
                parent->require_subcommand(1);
            CLI::App* leaf =
                single ? parent
                       : parent->add_subcommand(command.name, command.help)->group("Commands");
            addCommand(*leaf, command, request, chosen);
        }
    }
}

// Before the commands are added, which take the words over.
void useOwnWords(CLI::App& app)
{
    const auto formatter = app.get_formatter();
    formatter->label("SUBCOMMAND", "COMMAND");
    formatter->label("Positionals", "Arguments");
    formatter->label("REQUIRED", "");
    app.set_help_flag("--help,-h", "Print this help and end");
    app.set_version_flag("--version", "vornctl " VORN_VERSION, "Print the version and end");
}

// "help profile set" and "profile help" ask what "profile set --help" and "profile --help" do.
std::vector<std::string> wordsOf(int argc, char** argv)
{
    std::vector<std::string> words(argv + 1, argv + argc);
    for (std::size_t place = 0; place < 2 && place < words.size();) {
        if (words[place] != "help") {
            ++place;
            continue;
        }
        words.erase(words.begin() + static_cast<std::ptrdiff_t>(place));
        words.emplace_back("--help");
    }
    return words;
}

int complete(const CLI::App& app, int argc, char** argv)
{
    std::string text;
    for (const std::string& candidate : candidates(app, {argv + 2, argv + argc}))
        text += candidate + '\n';
    print(text);
    return 0;
}

// Does what was asked; a failure of the line that says nothing of a way out names the help.
int runChosen(const Command& command, const Request& request, const HiddenWord& hidden)
{
    try {
        return command.run(request);
    } catch (const Failure& failure) {
        const bool isHelpless = failure.status() == Exit::Usage && failure.advice().empty();
        throw hidden.hiddenIn(
            isHelpless ? Failure(failure.status(), failure.what(), helpPointer(command)) : failure);
    }
}

int parseAndRun(CLI::App& app, std::vector<std::string> words, const Request& request,
                const Command*& chosen)
{
    const HiddenWord hidden(words);
    checkCommandWords(app, words);
    refusePasswords(words);
    refuseValuesOfFlags(app, words);
    std::reverse(words.begin(), words.end()); // as the parser takes them
    try {
        app.parse(std::move(words));
    } catch (const CLI::CallForHelp&) {
        print(app.help());
        return 0;
    } catch (const CLI::CallForVersion& version) {
        print(std::string(version.what()) + '\n');
        return 0;
    } catch (const CLI::ParseError& error) {
        throw hidden.hiddenIn(parseFailure(app, error));
    }
    return runChosen(*chosen, request, hidden);
}

} // namespace

int runCommandLine(int argc, char** argv)
{
    Request request;
    const Command* chosen = nullptr;
    CLI::App app("Profiles, links, settings and features of the phone platform on this machine.",
                 "vornctl");
    app.require_subcommand(1);
    useOwnWords(app);
    app.footer(exitStatusHelp() +
               "\nVORN_ROOT names the folder that stands for the phone's file system.");
    addCommands(app, request, chosen);
    if (argc >= 3 && std::strcmp(argv[1], "--complete") == 0)
        return complete(app, argc, argv);
    return parseAndRun(app, wordsOf(argc, argv), request, chosen);
}

} // namespace ctl
