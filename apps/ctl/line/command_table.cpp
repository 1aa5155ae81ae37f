#include "line/command_table.h"

#include "commands/device_fields.h"
#include "operators/operator_columns.h"
#include "profile/columns.h"

namespace ctl {

namespace {

std::vector<std::string> settingFields()
{
    return {"name", "type", "value"};
}

std::vector<std::string> featureFields()
{
    return {"number", "available", "meaning"};
}

} // namespace

const std::vector<Group>& groups()
{
    static const std::vector<Group> table = {
        {"profile", "Network profiles: list, show and change them"},
        {"link", "Data links: open one"},
        {"operator", "Access points of the mobile operators: search them"},
        {"device", "Devices that could carry a link: list and show them"},
        {"setting", "Settings of the device-management tree"},
        {"feature", "Features that the device has"},
        {"doctor", "Look for what is damaged or keeps links from opening, and say what to do"},
    };
    return table;
}

// clang-format off
const std::vector<Command>& commands()
{
    static const std::vector<Command> table = {
        {"profile", "list", "List the stored profiles", {},
         {Flag::OnlyNames, Flag::Fields, Flag::Terse, Flag::SecretsInJson, Flag::Json}, profileList, profileColumns},
        {"profile", "show", "Show one profile", {Word::Profile},
         {Flag::Fields, Flag::Terse, Flag::ShowSecrets, Flag::Json}, profileShow, profileColumns},
        {"profile", "create", "Store a new profile", {Word::NewProfile, Word::Assignments},
         {Flag::Operator, Flag::Plan, Flag::FromSim, Flag::Passwords, Flag::SecretsInJson, Flag::Json}, profileCreate},
        {"profile", "set", "Change fields of a stored profile", {Word::Profile, Word::Assignments},
         {Flag::Passwords, Flag::SecretsInJson, Flag::Json}, profileSet},
        {"profile", "copy", "Store a copy of a profile under another name", {Word::Profile, Word::OtherName},
         {Flag::SecretsInJson, Flag::Json}, profileCopy},
        {"profile", "rename", "Give a profile another name", {Word::Profile, Word::OtherName},
         {Flag::Json}, profileRename},
        {"profile", "delete", "Remove profiles, damaged ones too", {Word::ProfilesToDelete},
         {Flag::Json}, profileDelete},
        {"profile", "export", "Write profiles as JSON, every bit of them", {Word::Profiles},
         {Flag::All, Flag::Output, Flag::RawExport, Flag::ShowSecrets, Flag::Json}, profileExport},
        {"profile", "import", "Store profiles from a file that export has written", {Word::File},
         {Flag::NewName, Flag::Replace, Flag::RawImport, Flag::SecretsInJson, Flag::Json}, profileImport},
        {"link", "open", "Open a link, print each indication, close it", {Word::Profile},
         {Flag::Hold, Flag::Timeout, Flag::Verbose, Flag::Json}, linkOpen},
        {"operator", "search", "List access points of operators, found by words", {Word::SearchWords},
         {Flag::Fields, Flag::Terse, Flag::Json}, operatorSearch, operatorColumns},
        {"device", "list", "List the devices that could carry a link", {},
         {Flag::Fields, Flag::Terse, Flag::Json}, deviceList, deviceFields},
        {"device", "show", "Show one device, and why it carries no link", {Word::Device},
         {Flag::Fields, Flag::Terse, Flag::Json}, deviceShow, deviceFields},
        {"setting", "get", "Print one setting", {Word::Setting}, {Flag::Json}, settingGet},
        {"setting", "set", "Change or add one setting", {Word::Setting, Word::SettingValue},
         {Flag::Type, Flag::Json}, settingSet},
        {"setting", "delete", "Remove settings", {Word::Settings}, {Flag::Json}, settingDelete},
        {"setting", "list", "List the settings", {}, {Flag::Fields, Flag::Terse, Flag::Json},
         settingList, settingFields},
        {"feature", "get", "Print whether a feature is on or off", {Word::Feature}, {Flag::Json}, featureGet},
        {"feature", "set", "Switch a feature on or off", {Word::Feature, Word::FeatureValue},
         {Flag::Json}, featureSet},
        {"feature", "delete", "Remove features", {Word::Features}, {Flag::Json}, featureDelete},
        {"feature", "list", "List the features", {}, {Flag::Fields, Flag::Terse, Flag::Json},
         featureList, featureFields},
        {"doctor", "", "Look for damage and for what keeps links from opening", {}, {Flag::Json}, doctor},
    };
    return table;
}
// clang-format on

} // namespace ctl
