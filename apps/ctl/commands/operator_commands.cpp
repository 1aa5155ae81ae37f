// The operators' access points.
#include "failure.h"
#include "line/request.h"
#include "listing.h"
#include "operators/operator_columns.h"
#include "operators/operator_search.h"

namespace ctl {

namespace {

std::string wordsOf(const Request& request)
{
    std::string words;
    for (const std::string& word : request.words)
        words += (words.empty() ? "" : " ") + word;
    return words;
}

} // namespace

int operatorSearch(const Request& request)
{
    const std::vector<std::string> usual = {"operator", "country", "plan", "apn", "type", "usage"};
    Listing listing(request, chosenFields(request, operatorColumns(),
                                          request.json ? operatorColumns() : usual));
    const std::vector<Operator> list = readOperators();
    Operators operators;
    for (const Operator& each : list)
        operators.push_back(&each);
    operators = findOperators(operators, wordsOf(request));
    for (const Operator* each : operators)
        for (const AccessPoint& point : each->accessPoints)
            listing.add(operatorCells(*each, point));
    listing.print(operators.empty()
                      ? "no operator fits these words; try fewer, or the country's code alone."
                      : "the list has no access point for data of any operator that fits.");
    return 0;
}

} // namespace ctl
