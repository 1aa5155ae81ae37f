// The features that the device has.
#include <map>

#include "commands/deleting.h"
#include "commands/integer_text.h"
#include "commands/settings_result.h"
#include "failure.h"
#include "line/request.h"
#include "listing.h"
#include "output.h"
#include "terminal_text.h"

namespace ctl {

namespace {

const char featuresList[] = "\"vornctl feature list\" shows the features.";

void check(const settingshost::Result& result, const std::string& action)
{
    checkSettings(result, action, featuresList);
}

Json jsonOf(int number, bool isAvailable)
{
    return {{"number", number},
            {"available", isAvailable},
            {"meaning", settingshost::featureText(number)}};
}

int featureNumber(const std::string& text)
{
    int number = 0;
    if (!integerOf(text, &number))
        throw Failure(Exit::Usage, inQuotes(text) + " is no feature number.",
                      "A feature number is greater than 0.");
    return number;
}

// Whether the feature is on; a Failure when the file does not name it.
bool storedFeature(int number, const std::string& action)
{
    const std::string what = action + ' ' + std::to_string(number);
    if (number <= 0)
        check({settingshost::Code::Number, "a feature number is 1 to 2147483647"}, what);
    settingshost::Features features;
    check(settingshost::listFeatures(&features), what);
    for (const auto& [each, isAvailable] : features)
        if (each == number)
            return isAvailable;
    check({settingshost::Code::NoNode,
           "there is no feature " + std::to_string(number) + " in " + settingshost::featuresFile()},
          what);
    return false;
}

} // namespace

int featureGet(const Request& request)
{
    const int number = featureNumber(request.name);
    const bool on = storedFeature(number, "read the feature");
    if (request.json)
        printJson(jsonOf(number, on));
    else
        print(on ? "on\n" : "off\n");
    return 0;
}

int featureSet(const Request& request)
{
    const int number = featureNumber(request.name);
    const bool on = request.value == "on";
    if (!on && request.value != "off")
        throw Failure(Exit::Usage,
                      inQuotes(request.value) + " does not fit; a feature is on or off.");
    check(settingshost::setFeature(number, on), "change the feature " + std::to_string(number));
    if (request.json)
        printJson(jsonOf(number, on));
    return 0;
}

int featureDelete(const Request& request)
{
    const auto isThere = [](const std::string& name) {
        storedFeature(featureNumber(name), "delete the feature");
    };
    const auto remove = [](const std::string& name) {
        const int number = featureNumber(name);
        check(settingshost::removeFeature(number), "delete the feature " + std::to_string(number));
    };
    return deleteEach(request, {isThere, remove, [](const std::string& name) {
                                    return Json({{"number", featureNumber(name)}});
                                }});
}

int featureList(const Request& request)
{
    settingshost::Features features;
    const std::vector<std::string> all = {"number", "available", "meaning"};
    Listing listing(request, chosenFields(request, all, all));
    check(settingshost::listFeatures(&features), "list the features");
    for (const auto& [number, isAvailable] : features) {
        const std::string text = std::to_string(number);
        const std::string meaning = settingshost::featureText(number);
        const char* available = isAvailable ? "yes" : "no";
        const std::map<std::string, Cell> cells = {
            {"number", {text, text, number}},
            {"available", {available, available, isAvailable}},
            {"meaning", {meaning.empty() ? "-" : meaning, meaning, meaning}}};
        listing.add(cells);
    }
    listing.print("no feature is stored; \"vornctl feature set NUMBER on\" adds one.");
    return 0;
}

} // namespace ctl
