#include "line/command_line.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

#include "failure.h"
#include "line/command_table.h"
#include "line/completion.h"
#include "line/line_failures.h"
#include "output.h"
#include "profile/values.h"
#include "terminal_text.h"

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

std::string timeoutProblem(std::string& text)
{
    const bool isNumber =
        !text.empty() && text.find_first_not_of("0123456789.") == std::string::npos;
    const double seconds = isNumber ? std::strtod(text.c_str(), nullptr) : 0;
    return seconds >= 0.001 && seconds <= 1e6
               ? ""
               : inQuotes(text) + " does not fit; it takes 0.001 to 1000000 seconds";
}

std::string emptyProblem(std::string& text)
{
    return text.empty() ? "the name of a file is empty" : "";
}

std::string typeProblem(std::string& text)
{
    return text == "integer" || text == "text" || text == "truth"
               ? ""
               : inQuotes(text) + " does not fit; it takes integer, text or truth";
}

CLI::Option* positional(CLI::App& app, const char* name, std::string& target, const char* help)
{
    return app.add_option(name, target, help)->required()->type_name("");
}

void addWord(CLI::App& app, Word word, Request& request)
{
    switch (word) {
    case Word::Profile:
        positional(app, "NAME", request.name, "Name of the stored profile");
        break;
    case Word::NewProfile:
        if (app.get_option_no_throw("NAME"))
            positional(app, "NEWNAME", request.newName, "Name of the new profile");
        else
            positional(app, "NAME", request.name, "Name of the new profile");
        break;
    case Word::Profiles:
        app.add_option("NAME", request.names, "Names of stored profiles")->type_name("");
        break;
    case Word::Assignments:
        app.add_option("FIELD=VALUE", request.assignments, "Fields and their new values")
            ->type_name("");
        app.footer(fieldHelp());
        break;
    case Word::File:
        positional(app, "FILE", request.file, "File to read, - for the standard input");
        break;
    case Word::Setting:
        positional(app, "NAME", request.name, "Name of the setting");
        break;
    case Word::SettingValue:
        positional(app, "VALUE", request.value, "New value");
        break;
    case Word::Feature:
        positional(app, "NUMBER", request.name, "Number of the feature; 431 is WiFi");
        break;
    case Word::FeatureValue:
        positional(app, "VALUE", request.value, "on or off");
        break;
    }
}

void addPasswords(CLI::App& app, Request& request)
{
    const auto pair = [&](const char* flag, bool& ask, const char* option, std::string& file,
                          const std::string& what) {
        app.add_flag(flag, ask, "Ask for the " + what + ", or read a line of the standard input");
        app.add_option(option, file, "Read the " + what + " from a file")->type_name("FILE");
    };
    pair("--password", request.askPassword, "--password-file", request.passwordFile,
         "GPRS password");
    pair("--csd-password", request.askCsdPassword, "--csd-password-file", request.csdPasswordFile,
         "CSD password");
}

void addFlag(CLI::App& app, Flag flag, Request& request)
{
    switch (flag) {
    case Flag::Json:
        app.add_flag("--json", request.json, "Print JSON for programs");
        break;
    case Flag::ShowSecrets:
        app.add_flag("--show-secrets", request.showSecrets, "Show passwords");
        break;
    case Flag::SecretsInJson:
        app.add_flag("--show-secrets", request.showSecrets, "Put passwords into the JSON");
        break;
    case Flag::Passwords:
        addPasswords(app, request);
        break;
    case Flag::OnlyNames:
        app.add_flag("--names", request.onlyNames, "Print the names only, one a line");
        break;
    case Flag::All:
        app.add_flag("--all", request.all, "Export every profile");
        break;
    case Flag::RawExport:
        app.add_flag("--raw", request.raw, "Write one record as its 1168 bytes");
        break;
    case Flag::RawImport:
        app.add_flag("--raw", request.raw, "The file is one record of 1168 bytes; needs --name");
        break;
    case Flag::Output:
        app.add_option("--output,-o", request.file, "Write to a file that only you can read")
            ->type_name("FILE")
            ->check(CLI::Validator(emptyProblem, ""));
        break;
    case Flag::NewName:
        app.add_option("--name", request.name, "Store the file's one profile under this name")
            ->type_name("NAME");
        break;
    case Flag::Replace:
        app.add_flag("--replace", request.replace, "Replace stored profiles of the same names");
        break;
    case Flag::Hold:
        app.add_flag("--hold", request.hold, "Keep the link until Ctrl-C, or until it breaks");
        break;
    case Flag::Timeout:
        app.add_option("--timeout", request.timeout, "Give up when the link is not open in time")
            ->type_name("SECONDS")
            ->check(CLI::Validator(timeoutProblem, ""));
        break;
    case Flag::Type:
        app.add_option("--type", request.type,
                       "integer, text or truth; by default the setting's own")
            ->type_name("TYPE")
            ->check(CLI::Validator(typeProblem, ""));
        break;
    }
}

void addCommand(CLI::App& app, const Command& command, Request& request, const Command*& chosen)
{
    for (const Word word : command.words)
        addWord(app, word, request);
    for (const Flag flag : command.flags)
        addFlag(app, flag, request);
    for (const Flag flag : command.flags) {
        if (flag == Flag::SecretsInJson)
            app.get_option("--show-secrets")->needs(app.get_option("--json"));
        if (flag == Flag::RawExport)
            app.get_option("--raw")->excludes(app.get_option("--json"));
    }
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
    std::vector<std::string> words = wordsOf(argc, argv);
    checkCommandWords(app, words);
    refusePasswords(words);
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
        throw parseFailure(app, error);
    }
    return chosen->run(request);
}

} // namespace ctl
