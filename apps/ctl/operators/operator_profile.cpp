#include "operators/operator_profile.h"

#include <algorithm>

#include "base/rights.h"
#include "failure.h"
#include "network/napi_host.h"
#include "operators/operator_search.h"
#include "profile/fields.h"
#include "profile/values.h"
#include "suggestion.h"
#include "terminal_text.h"

namespace ctl {

namespace {

constexpr int simTimeLimitMs = 5000;
constexpr std::size_t mostTold = 20;

const char byHand[] =
    "An access point that is on no list is given by hand: \"vornctl profile create NAME "
    "apn=...\".";

// What to type for a candidate, and what tells a person which it is.
struct Candidate
{
    std::string typed;
    std::string told;
};

// One candidate a line, below each other.
Failure ambiguous(const std::string& what, const char* option, std::vector<Candidate> candidates)
{
    const std::size_t leftOut = candidates.size() - std::min(candidates.size(), mostTold);
    candidates.resize(candidates.size() - leftOut);
    std::size_t width = 0;
    for (Candidate& each : candidates) {
        each.typed = printable(std::string(option) + ' ' + base::shellWord(each.typed));
        width = std::max(width, displayWidth(each.typed));
    }
    std::string lines;
    for (const Candidate& each : candidates)
        lines += "\n  " + each.typed + std::string(width - displayWidth(each.typed) + 2, ' ') +
                 printable(each.told);
    if (leftOut > 0)
        lines += "\n  and " + std::to_string(leftOut) + " more";
    return Failure(
        Exit::Usage, what + lines,
        leftOut > 0 ? "Give more words; \"vornctl operator search WORDS\" lists them all." : "");
}

std::string joined(const std::vector<std::string>& parts, const char* between)
{
    std::string text;
    for (const std::string& part : parts)
        if (!part.empty())
            text += (text.empty() ? "" : between) + part;
    return text;
}

std::vector<Candidate> candidatesOf(const Operators& found)
{
    std::vector<Candidate> candidates;
    for (const Operator* each : found)
        candidates.push_back(
            {each->names[0] + ' ' + each->country,
             joined({each->countryName, each->isPrimary ? "owner of the network" : ""}, ", ")});
    return candidates;
}

Failure noOperator(const Operators& operators, const Request& request, const std::string& network)
{
    if (request.operatorWords.empty())
        return Failure(Exit::NoEntry,
                       "the list has no operator of the SIM card's network " + inQuotes(network) +
                           '.',
                       byHand);
    std::vector<std::string> names;
    for (const Operator* each : operators)
        names.insert(names.end(), each->names.begin(), each->names.end());
    const std::string closest = suggestion(request.operatorWords, names);
    return Failure(Exit::NoEntry,
                   "the list has no operator " + inQuotes(request.operatorWords) +
                       (network.empty() ? "" : " of the SIM card's network " + inQuotes(network)) +
                       '.',
                   closest.empty() ? byHand : closest);
}

std::string networkOfSim()
{
    const std::string network = napihost::simOperator(simTimeLimitMs);
    if (network.empty())
        throw Failure(Exit::NoEntry,
                      "no SIM card tells its operator: there is none, it is locked, or "
                      "ModemManager does not run.",
                      "\"vornctl doctor\" tells more; --operator WORDS takes the operator by its "
                      "name.");
    return network;
}

const Operator& chosenOperator(const Request& request, const std::vector<Operator>& list)
{
    const std::string network = request.fromSim ? networkOfSim() : "";
    Operators operators;
    for (const Operator& each : list)
        operators.push_back(&each);
    if (request.fromSim)
        operators = operatorsOfNetwork(operators, network);
    const Operators found = request.operatorWords.empty()
                                ? operators
                                : namedOperators(operators, request.operatorWords);
    if (found.empty())
        throw noOperator(operators, request, network);
    const std::string asked = request.operatorWords.empty()
                                  ? "the SIM card's network " + inQuotes(network)
                                  : inQuotes(request.operatorWords);
    if (found.size() > 1)
        throw ambiguous(asked + " fits " + std::to_string(found.size()) +
                            " operators; take one of them:",
                        "--operator", candidatesOf(found));
    return *found[0];
}

// The shortest of the texts of an access point that --plan takes for it and no other.
std::string typedFor(const AccessPoint& point, const AccessPoints& all)
{
    const std::vector<std::string> texts = {
        point.plan, point.apn, joined({point.plan, point.types}, " "),
        joined({point.plan, point.apn}, " "),
        joined({point.plan, point.apn, point.types, point.user}, " ")};
    for (const std::string& text : texts) {
        const AccessPoints found = namedAccessPoints(all, text);
        if (!text.empty() && found.size() == 1 && distinct({found[0], &point}).size() == 1)
            return text;
    }
    return texts.back();
}

std::vector<Candidate> candidatesOf(const AccessPoints& found, const AccessPoints& all)
{
    std::vector<Candidate> candidates;
    for (const AccessPoint* point : found)
        candidates.push_back(
            {typedFor(*point, all), joined({"access point " + point->apn, point->types,
                                            point->user.empty() ? "" : "user " + point->user,
                                            point->usage == "internet" ? "" : point->usage},
                                           ", ")});
    return candidates;
}

// What is meant for browsing by WAP is taken only where it is asked for, or where nothing else is.
AccessPoints usual(const AccessPoints& all)
{
    AccessPoints found;
    for (const AccessPoint* point : all)
        if (point->usage != "wap")
            found.push_back(point);
    return distinct(found.empty() ? all : found);
}

const AccessPoint& chosenAccessPoint(const Request& request, const Operator& chosen)
{
    const std::string name = inQuotes(chosen.names[0]);
    AccessPoints all;
    for (const AccessPoint& point : chosen.accessPoints)
        all.push_back(&point);
    if (all.empty())
        throw Failure(Exit::NoEntry, "the list has no access point of " + name + " for data.",
                      byHand);
    const AccessPoints found =
        request.plan.empty() ? usual(all) : namedAccessPoints(all, request.plan);
    const std::string asked = request.plan.empty() ? "" : inQuotes(request.plan) + " of ";
    if (found.size() == 1)
        return *found[0];
    if (!found.empty())
        throw ambiguous(asked + name + " fits " + std::to_string(found.size()) +
                            " plans; take one of them:",
                        "--plan", candidatesOf(found, all));
    const std::vector<Candidate> candidates = candidatesOf(distinct(all), all);
    const Failure others = ambiguous("", "--plan", candidates);
    throw Failure(Exit::NoEntry,
                  name + " has no plan " + inQuotes(request.plan) + "; there are:" + others.what());
}

void fill(const Operator& chosen, const AccessPoint& point, NetworkProfile& record)
{
    std::vector<std::string> servers = point.dns;
    servers.resize(2);
    const std::pair<const char*, const std::string*> values[] = {
        {"apn", &point.apn},   {"user", &point.user}, {"password", &point.password},
        {"dns1", &servers[0]}, {"dns2", &servers[1]},
    };
    for (const auto& [name, value] : values)
        if (const auto problem = parseValue(*findField(name), *value, record))
            throw Failure(Exit::Input,
                          "the list's access point of " + inQuotes(chosen.names[0]) +
                              " does not fit a profile: " + name + ": " + *problem + '.',
                          byHand);
}

} // namespace

void takeFromOperator(const Request& request, NetworkProfile& record)
{
    if (request.operatorWords.empty() && !request.fromSim) {
        if (!request.plan.empty())
            throw Failure(Exit::Usage, "--plan needs --operator or --from-sim.");
        return;
    }
    const std::vector<Operator> list = readOperators();
    const Operator& chosen = chosenOperator(request, list);
    fill(chosen, chosenAccessPoint(request, chosen), record);
}

} // namespace ctl
