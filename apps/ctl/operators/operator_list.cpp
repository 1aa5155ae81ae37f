#include "operators/operator_list.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <map>

#include <pugixml.hpp>

#include "base/ip_address.h"
#include "failure.h"
#include "input_file.h"
#include "operators/caseless.h"
#include "terminal_text.h"

namespace ctl {

namespace {

constexpr std::size_t largestFile = 8U << 20;
constexpr char packageFile[] = "/usr/share/mobile-broadband-provider-info/serviceproviders.xml";

std::string listPath()
{
    const char* path = std::getenv("VORN_OPERATORS");
    return path && *path ? path : packageFile;
}

const char advice[] =
    "The Debian package mobile-broadband-provider-info brings it: \"sudo apt install "
    "mobile-broadband-provider-info\"; VORN_OPERATORS names another file. Without it, give the "
    "access point by hand: \"vornctl profile create NAME apn=...\".";

Failure unusable(const std::string& problem)
{
    return Failure(
        Exit::Input,
        "cannot use the list of operators " + inQuotes(listPath()) + ": " + problem + '.', advice);
}

std::string readList()
{
    const std::string path = listPath();
    try {
        return readFile(path, largestFile, Exit::Input, "the list of operators " + inQuotes(path));
    } catch (const Failure& failure) {
        throw Failure(failure.status(), failure.what(), advice);
    }
}

std::string problemOf(const pugi::xml_parse_result& result, const std::string& bytes)
{
    const auto place = std::min(static_cast<std::size_t>(result.offset), bytes.size());
    const auto end = bytes.begin() + static_cast<std::ptrdiff_t>(place);
    return "line " + std::to_string(1 + std::count(bytes.begin(), end, '\n')) + " is damaged (" +
           result.description() + ')';
}

bool carriesData(const pugi::xml_node& apn)
{
    const char* usage = apn.child("usage").attribute("type").value();
    return *apn.attribute("value").value() && std::strcmp(usage, "mms") != 0 &&
           std::strcmp(usage, "ia") != 0;
}

// A record has room for two addresses of IPv4; the network names its others itself.
std::vector<std::string> nameServers(const pugi::xml_node& apn)
{
    std::vector<std::string> servers;
    for (const pugi::xml_node& dns : apn.children("dns"))
        if (servers.size() < 2 && base::ipv4Of(dns.child_value()).value_or(0) != 0)
            servers.emplace_back(dns.child_value());
    return servers;
}

AccessPoint accessPointOf(const pugi::xml_node& apn)
{
    AccessPoint point;
    point.plan = apn.child_value("name");
    point.apn = apn.attribute("value").value();
    for (const pugi::xml_node& plan : apn.children("plan"))
        point.types +=
            (point.types.empty() ? "" : "/") + std::string(plan.attribute("type").value());
    point.usage = apn.child("usage").attribute("type").value();
    point.user = apn.child_value("username");
    point.password = apn.child_value("password");
    point.dns = nameServers(apn);
    return point;
}

void addProvider(const pugi::xml_node& provider, Operator& whole)
{
    for (const pugi::xml_node& name : provider.children("name"))
        if (*name.child_value() && std::count(whole.names.begin(), whole.names.end(),
                                              std::string(name.child_value())) == 0)
            whole.names.emplace_back(name.child_value());
    whole.isPrimary |= provider.attribute("primary").as_bool();
    const pugi::xml_node gsm = provider.child("gsm");
    for (const pugi::xml_node& network : gsm.children("network-id"))
        whole.networks.push_back(std::string(network.attribute("mcc").value()) + ' ' +
                                 network.attribute("mnc").value());
    for (const pugi::xml_node& apn : gsm.children("apn"))
        if (carriesData(apn))
            whole.accessPoints.push_back(accessPointOf(apn));
}

// Operators of other techniques than GSM and its successors have nothing for a profile.
void addCountry(const pugi::xml_node& country, std::vector<Operator>& operators)
{
    std::map<std::u32string, std::size_t> places;
    for (const pugi::xml_node& provider : country.children("provider")) {
        const std::string name = provider.child_value("name");
        if (name.empty() || !provider.child("gsm"))
            continue;
        const auto [place, isNew] = places.emplace(caseless(name), operators.size());
        if (isNew) {
            operators.emplace_back();
            operators.back().country = country.attribute("code").value();
            operators.back().countryName = country.child_value("name");
        }
        addProvider(provider, operators[place->second]);
    }
}

} // namespace

std::vector<Operator> readOperators()
{
    const std::string bytes = readList();
    pugi::xml_document document;
    const pugi::xml_parse_result result = document.load_buffer(
        bytes.data(), bytes.size(), pugi::parse_default | pugi::parse_trim_pcdata);
    if (!result)
        throw unusable(problemOf(result, bytes));
    const pugi::xml_node root = document.child("serviceproviders");
    if (!root || std::strncmp(root.attribute("format").value(), "2.", 2) != 0)
        throw unusable("it is no list of service providers in format 2");
    std::vector<Operator> operators;
    for (const pugi::xml_node& country : root.children("country"))
        addCountry(country, operators);
    if (operators.empty())
        throw unusable("it lists no operator");
    return operators;
}

} // namespace ctl
