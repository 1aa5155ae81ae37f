#include "operators/operator_search.h"

#include <algorithm>
#include <set>
#include <tuple>

#include "operators/caseless.h"

namespace ctl {

namespace {

using Words = std::vector<std::u32string>;

bool isDigit(char32_t c)
{
    return c >= U'0' && c <= U'9';
}

// "262-01" and "262/01" are 26201.
std::u32string codeOf(const std::u32string& word)
{
    std::u32string digits;
    for (const char32_t c : word)
        if (isDigit(c))
            digits += c;
        else if (c != U'-' && c != U'/')
            return {};
    return digits;
}

bool isNetwork(const std::string& network, const std::u32string& code)
{
    const std::u32string text = caseless(network);
    const std::size_t blank = text.find(U' ');
    const std::u32string country = text.substr(0, blank);
    const std::u32string own = text.substr(blank + 1);
    return !code.empty() && (code == country || code == own || code == country + own);
}

bool belongs(const std::u32string& word, const Operator& each)
{
    const std::u32string code = codeOf(word);
    const auto named = [&word](const std::string& name) { return hasWord(caseless(name), word); };
    return word == caseless(each.country) || named(each.countryName) ||
           std::any_of(each.names.begin(), each.names.end(), named) ||
           std::any_of(each.networks.begin(), each.networks.end(),
                       [&code](const std::string& network) { return isNetwork(network, code); });
}

template <typename Each, typename Condition>
std::vector<const Each*> those(const std::vector<const Each*>& all, Condition condition)
{
    std::vector<const Each*> found;
    std::copy_if(all.begin(), all.end(), std::back_inserter(found),
                 [&condition](const Each* each) { return condition(*each); });
    return found;
}

bool isCalled(const Operator& each, const std::u32string& text, const std::string& behind)
{
    return std::any_of(each.names.begin(), each.names.end(),
                       [&](const std::string& name) { return caseless(name + behind) == text; });
}

bool belongs(const std::u32string& word, const AccessPoint& point)
{
    for (const std::string* text : {&point.plan, &point.apn, &point.types, &point.user})
        if (hasWord(caseless(*text), word))
            return true;
    return false;
}

} // namespace

Operators findOperators(const Operators& operators, const std::string& words)
{
    const Words all = caselessWords(words);
    return those(operators, [&all](const Operator& each) {
        return std::all_of(all.begin(), all.end(),
                           [&each](const std::u32string& word) { return belongs(word, each); });
    });
}

Operators namedOperators(const Operators& operators, const std::string& words)
{
    const std::u32string text = caseless(words);
    Operators found = those(operators, [&text](const Operator& each) {
        return isCalled(each, text, ' ' + each.country);
    });
    if (found.empty())
        found =
            those(operators, [&text](const Operator& each) { return isCalled(each, text, ""); });
    return found.empty() ? findOperators(operators, words) : found;
}

Operators operatorsOfNetwork(const Operators& operators, const std::string& network)
{
    return those(operators, [&network](const Operator& each) {
        return std::any_of(each.networks.begin(), each.networks.end(), [&](std::string own) {
            own.erase(std::remove(own.begin(), own.end(), ' '), own.end());
            return own == network;
        });
    });
}

AccessPoints namedAccessPoints(const AccessPoints& points, const std::string& words)
{
    const std::u32string text = caseless(words);
    AccessPoints found = those(points, [&text](const AccessPoint& point) {
        return caseless(point.plan) == text || caseless(point.apn) == text;
    });
    const Words all = caselessWords(words);
    if (found.empty())
        found = those(points, [&all](const AccessPoint& point) {
            return std::all_of(all.begin(), all.end(), [&point](const std::u32string& word) {
                return belongs(word, point);
            });
        });
    return distinct(found);
}

AccessPoints distinct(const AccessPoints& points)
{
    std::set<std::tuple<std::string, std::string, std::string, std::vector<std::string>>> seen;
    return those(points, [&seen](const AccessPoint& point) {
        return seen.emplace(point.apn, point.user, point.password, point.dns).second;
    });
}

} // namespace ctl
