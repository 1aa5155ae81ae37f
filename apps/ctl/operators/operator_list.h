// The mobile operators of the world and their access points, as Debian's package
// mobile-broadband-provider-info lists them.
#ifndef CTL_OPERATOR_LIST_H
#define CTL_OPERATOR_LIST_H

#include <string>
#include <vector>

namespace ctl {

// Texts are as they stand in the file, "" where it says nothing.
struct AccessPoint
{
    std::string plan;  // "Surf & Talk", what the operator calls it
    std::string apn;   // never empty
    std::string types; // "prepaid", "postpaid" or "prepaid/postpaid"
    std::string usage; // "internet", "wap", ...
    std::string user;
    std::string password;
    std::vector<std::string> dns; // at most two, each of them an IPv4 address
};

struct Operator
{
    std::vector<std::string> names; // at least one; in several scripts where there are such
    std::string country;            // its code, "de"
    std::string countryName;
    std::vector<std::string> networks; // country and network of each, with a blank: "262 01"
    bool isPrimary = false;            // the owner of a network that other operators use, too
    std::vector<AccessPoint> accessPoints;
};

// All operators, in the order of the file, which VORN_OPERATORS names, else the package's. Access
// points that carry nothing but multimedia messages or the modem's own registration are left out.
// Entries of one name in one country are one operator. Throws Failure (Exit::Input) when the file
// cannot be read, is larger than 8 MiB, is damaged or lists no operator.
std::vector<Operator> readOperators();

} // namespace ctl

#endif
