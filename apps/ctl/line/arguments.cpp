#include "line/arguments.h"

#include <algorithm>
#include <cstdlib>

#include "terminal_text.h"

namespace ctl {

const std::vector<std::string> settingTypes = {"integer", "text", "truth"};

namespace {

std::string timeoutProblem(std::string& text)
{
    const bool isNumber =
        !text.empty() && text.find_first_not_of("0123456789.") == std::string::npos;
    const double seconds = isNumber ? std::strtod(text.c_str(), nullptr) : 0;
    return seconds >= 0.001 && seconds <= 1e6
               ? ""
               : inQuotes(text) + " does not fit; it takes 0.001 to 1000000 seconds";
}

std::string typeProblem(std::string& text)
{
    return std::count(settingTypes.begin(), settingTypes.end(), text) > 0
               ? ""
               : inQuotes(text) + " does not fit; it takes integer, text or truth";
}

std::string emptyProblem(std::string& text)
{
    return text.empty() ? "it is empty" : "";
}

const std::vector<WordMeaning> words = {
    {Word::Profile, "NAME", "Name of the stored profile", &Request::name, nullptr, true},
    {Word::NewProfile, "NAME", "Name of the new profile", &Request::name, nullptr, true},
    {Word::OtherName, "NEWNAME", "Name of the new profile", &Request::newName, nullptr, true},
    {Word::Profiles, "NAME", "Names of stored profiles", nullptr, &Request::names, false},
    {Word::ProfilesToDelete, "NAME", "Names of stored profiles", nullptr, &Request::names, true},
    {Word::Assignments, "FIELD=VALUE", "Fields and their new values", nullptr,
     &Request::assignments, false},
    {Word::SearchWords, "WORDS", "Words of a name or a country, a country's code, or a network's",
     nullptr, &Request::words, true},
    {Word::File, "FILE", "File to read, - for the standard input", &Request::file, nullptr, true},
    {Word::Setting, "NAME", "Name of the setting", &Request::name, nullptr, true},
    {Word::Settings, "NAME", "Names of stored settings", nullptr, &Request::names, true},
    {Word::SettingValue, "VALUE", "New value", &Request::value, nullptr, true},
    {Word::Feature, "NUMBER", "Number of the feature; 431 is WiFi", &Request::name, nullptr, true},
    {Word::Features, "NUMBER", "Numbers of features", nullptr, &Request::names, true},
    {Word::FeatureValue, "VALUE", "on or off", &Request::value, nullptr, true},
    {Word::Device, "DEVICE", "Interface or port of the device", &Request::name, nullptr, true},
};

Option flag(Flag which, const char* name, const char* help, bool Request::*on)
{
    return {which, name, "", help, on, nullptr, nullptr};
}

} // namespace

const WordMeaning& meaningOf(Word word)
{
    return *std::find_if(words.begin(), words.end(),
                         [word](const WordMeaning& each) { return each.word == word; });
}

const std::vector<Option>& options()
{
    static const std::vector<Option> table = {
        flag(Flag::Json, "--json", "Print JSON for programs", &Request::json),
        flag(Flag::ShowSecrets, "--show-secrets", "Show passwords", &Request::showSecrets),
        flag(Flag::SecretsInJson, "--show-secrets", "Put passwords into the JSON",
             &Request::showSecrets),
        flag(Flag::Passwords, "--password",
             "Ask for the GPRS password, or read a line of the standard input",
             &Request::askPassword),
        {Flag::Passwords, "--password-file", "FILE", "Read the GPRS password from a file", nullptr,
         &Request::passwordFile, emptyProblem},
        flag(Flag::Passwords, "--csd-password",
             "Ask for the CSD password, or read a line of the standard input",
             &Request::askCsdPassword),
        {Flag::Passwords, "--csd-password-file", "FILE", "Read the CSD password from a file",
         nullptr, &Request::csdPasswordFile, emptyProblem},
        {Flag::Operator, "--operator", "WORDS",
         "Take the access point of this operator: words of its name, its country's code", nullptr,
         &Request::operatorWords, emptyProblem},
        {Flag::Plan, "--plan", "WORDS", "Which of the operator's plans: its name or access point",
         nullptr, &Request::plan, emptyProblem},
        flag(Flag::FromSim, "--from-sim", "Take the access point of the SIM card's operator",
             &Request::fromSim),
        flag(Flag::OnlyNames, "--names", "Print the names only, one a line", &Request::onlyNames),
        {Flag::Fields, "--fields", "FIELDS", "Show these fields only, with commas between them",
         nullptr, &Request::fields, emptyProblem},
        flag(Flag::Terse, "--terse", "For scripts: values alone, with tabs between them",
             &Request::terse),
        flag(Flag::All, "--all", "Export every profile", &Request::all),
        flag(Flag::RawExport, "--raw", "Write one record as its 1168 bytes", &Request::raw),
        flag(Flag::RawImport, "--raw", "The file is one record of 1168 bytes; needs --name",
             &Request::raw),
        {Flag::Output, "--output,-o", "FILE", "Write to a file that only you can read", nullptr,
         &Request::file, emptyProblem},
        {Flag::NewName, "--name", "NAME", "Store the file's one profile under this name", nullptr,
         &Request::name, nullptr},
        flag(Flag::Replace, "--replace", "Replace stored profiles of the same names",
             &Request::replace),
        flag(Flag::Hold, "--hold", "Keep the link until Ctrl-C, or until it breaks",
             &Request::hold),
        {Flag::Timeout, "--timeout", "SECONDS", "Give up when the link is not open in time",
         nullptr, &Request::timeout, timeoutProblem},
        flag(Flag::Verbose, "--verbose,-v", "Tell each step of the dialling", &Request::verbose),
        {Flag::Type, "--type", "TYPE", "integer, text or truth; by default the setting's own",
         nullptr, &Request::type, typeProblem},
    };
    return table;
}

const Option* findOption(const std::string& name)
{
    for (const Option& option : options())
        if ((',' + std::string(option.names) + ',').find(',' + name + ',') != std::string::npos)
            return &option;
    return nullptr;
}

} // namespace ctl
