#include "operators/operator_columns.h"

namespace ctl {

namespace {

Cell cellOf(const std::string& text)
{
    return {text.empty() ? "-" : text, text, text};
}

std::string joined(const std::vector<std::string>& texts)
{
    std::string all;
    for (const std::string& text : texts)
        all += (all.empty() ? "" : ", ") + text;
    return all;
}

// "262 01" is 26201.
std::vector<std::string> codesOf(std::vector<std::string> networks)
{
    for (std::string& network : networks)
        network.erase(network.find(' '), 1);
    return networks;
}

} // namespace

std::vector<std::string> operatorColumns()
{
    return {"operator", "names", "country", "country-name", "networks", "plan", "apn",
            "type",     "usage", "user",    "password",     "dns1",     "dns2"};
}

std::map<std::string, Cell> operatorCells(const Operator& each, const AccessPoint& point)
{
    const std::vector<std::string> codes = codesOf(each.networks);
    const std::string names = joined(each.names);
    const std::string networks = joined(codes);
    std::vector<std::string> dns = point.dns;
    dns.resize(2);
    return {{"operator", cellOf(each.names[0])},
            {"names", {names, names, each.names}},
            {"country", cellOf(each.country)},
            {"country-name", cellOf(each.countryName)},
            {"networks", {networks.empty() ? "-" : networks, networks, codes}},
            {"plan", cellOf(point.plan)},
            {"apn", cellOf(point.apn)},
            {"type", cellOf(point.types)},
            {"usage", cellOf(point.usage)},
            {"user", cellOf(point.user)},
            {"password", cellOf(point.password)},
            {"dns1", cellOf(dns[0])},
            {"dns2", cellOf(dns[1])}};
}

} // namespace ctl
