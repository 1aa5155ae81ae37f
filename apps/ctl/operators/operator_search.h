// Operators and plans found by words.
#ifndef CTL_OPERATOR_SEARCH_H
#define CTL_OPERATOR_SEARCH_H

#include <string>
#include <vector>

#include "operators/operator_list.h"

namespace ctl {

using Operators = std::vector<const Operator*>;
using AccessPoints = std::vector<const AccessPoint*>;

// The operators to which each of the words belongs: it begins a word of a name or of the country's
// name, or is the country's code, or a code of a network: "262", "26201", "262-01".
Operators findOperators(const Operators& operators, const std::string& words);

// As findOperators(), but where a name, or a name with the country's code behind it, is what is
// asked for, only those.
Operators namedOperators(const Operators& operators, const std::string& words);

// The operators that have this network, "26201".
Operators operatorsOfNetwork(const Operators& operators, const std::string& network);

// The access points of a plan: by its name or its access point's, else by words of these, of its
// types and of its user. Of access points that differ in nothing that a profile holds, one.
AccessPoints namedAccessPoints(const AccessPoints& points, const std::string& words);

// Without those that differ from an earlier one in nothing that a profile holds.
AccessPoints distinct(const AccessPoints& points);

} // namespace ctl

#endif
