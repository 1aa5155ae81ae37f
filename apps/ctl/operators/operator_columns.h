// An access point of an operator as named values, for lists and for scripts.
#ifndef CTL_OPERATOR_COLUMNS_H
#define CTL_OPERATOR_COLUMNS_H

#include <map>
#include <string>
#include <vector>

#include "listing.h"
#include "operators/operator_list.h"

namespace ctl {

// "operator", "country" and so on: the keys of the JSON.
std::vector<std::string> operatorColumns();

// The values of all of them. The password is that of a public list, and no secret.
std::map<std::string, Cell> operatorCells(const Operator& each, const AccessPoint& point);

} // namespace ctl

#endif
