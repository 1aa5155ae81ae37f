// "doctor": everything below the root that is damaged or keeps links from opening, and what a
// person can do about it.
#include <filesystem>
#include <set>

#include "base/look_variables.h"
#include "base/rights.h"
#include "base/utf8.h"
#include "failure.h"
#include "line/request.h"
#include "network/napi_host.h"
#include "output.h"
#include "profile/store.h"
#include "profile/values.h"
#include "profile/whole_store.h"
#include "settings/settings_host.h"
#include "terminal_text.h"
#include "unfinished_file.h"
#include "vornqtnapi_texts.h"

namespace ctl {

namespace {

using napihost::Finding;

constexpr int serviceLimitMs = 5000; // for services that do not answer

std::string recordPath(const std::string& name)
{
    return napihost::profilesFolder() + '/' + name + "/profile";
}

// A record of the right size can still hold what no program can use.
void inspectRecord(const std::string& name, const NetworkProfile& record,
                   std::vector<Finding>& findings)
{
    const std::string path = recordPath(name);
    for (const Field& field : fields()) {
        if (field.kind != Kind::Text && field.kind != Kind::Secret)
            continue;
        const std::string text = valueText(field, record);
        if (!base::isUtf8(text) || base::hasControls(text))
            findings.push_back({path,
                                std::string("the field ") + field.name + " holds no readable text",
                                "give it a new value with \"vornctl profile set\""});
    }
}

// The store as a whole, into which nobody sees.
Finding keptOut(int result)
{
    const std::string store = napihost::profilesFolder();
    const std::string closed = base::closedFolderOnTheWay(store);
    if (result == NAPI_ERR_ACCESS && !closed.empty())
        return {closed, "its owner may not enter it",
                "chmod u+rwx " + base::shellWord(closed) +
                    "; where it is empty, the next new profile mends it"};
    return {store, std::string("cannot be looked through: ") + vornResultText(result),
            result == NAPI_ERR_ACCESS
                ? "give its owner the permission to enter it, and the folders above it"
                : "look at the kernel's messages about the disk"};
}

// What looking at the folders shows, and what only reading the records does.
std::vector<Finding> findInStore()
{
    std::vector<Finding> findings;
    const int result = napihost::inspectStore(&findings);
    if (result == NAPI_ERR_ROOT)
        failNapi(result, "look through the profiles", nullptr);
    if (result < 0) // the files beside the profiles may still have something to tell
        return {keptOut(result)};
    std::set<std::string> told;
    for (const Finding& finding : findings)
        told.insert(finding.path);
    const std::vector<Unread> unread =
        readEach(listProfiles(), [&](const std::string& name, const NetworkProfile& record) {
            inspectRecord(name, record, findings);
        });
    for (const Unread& one : unread)
        if (const std::string path = recordPath(one.name); told.count(path) == 0)
            findings.push_back({path, std::string("cannot be read: ") + vornResultText(one.result),
                                "restore it from a copy, or delete the profile"});
    return findings;
}

// What the programs with a screen pass over, of the environment in which doctor runs.
void findInEnvironment(std::vector<Finding>& findings)
{
    for (const base::LookVariable& variable : base::lookVariables) {
        const std::string complaint = base::lookComplaint(variable);
        if (!complaint.empty())
            findings.push_back({variable.name, complaint.substr(complaint.find('=') + 1),
                                "set it to a value that means something, or unset it"});
    }
}

// What a configuration means that is wrong itself, nobody can tell: it is mended first.
void findInNetwork(std::vector<Finding>& findings)
{
    std::vector<Finding> found = napihost::inspectNetworkConfiguration();
    if (found.empty())
        found = napihost::inspectLinks(serviceLimitMs);
    findings.insert(findings.end(), found.begin(), found.end());
}

std::vector<Finding> findAll()
{
    std::vector<Finding> findings = findInStore();
    for (const std::string& path : unfinishedFiles())
        findings.push_back({path, "left by an export that was killed; it may hold passwords",
                            "remove it, and export again"});
    findInNetwork(findings);
    for (const settingshost::Finding& finding : settingshost::inspectSettings())
        findings.push_back({finding.path, finding.problem, finding.remedy});
    findInEnvironment(findings);
    return findings;
}

} // namespace

int doctor(const Request& request)
{
    std::error_code ignored;
    const std::string root = napihost::rootFolder();
    const bool isMissing =
        std::filesystem::status(root, ignored).type() == std::filesystem::file_type::not_found;
    const std::vector<Finding> findings = findAll();
    Json list = Json::array();
    std::string text;
    for (const Finding& finding : findings) {
        list.push_back(
            {{"path", finding.path}, {"problem", finding.problem}, {"remedy", finding.remedy}});
        text += printable(finding.path) + ": " + printable(finding.problem) + "\n  " +
                printable(finding.remedy) + '\n';
    }
    if (request.json)
        printJson(list);
    else
        print(!findings.empty() ? text
              : isMissing       ? "There is no folder " + inQuotes(root) +
                                " yet, so nothing is stored.\n  The first thing that is stored "
                                "makes it; VORN_ROOT names another.\n"
                          : "Nothing is wrong below " + inQuotes(root) + ".\n");
    return static_cast<int>(findings.empty() ? Exit::Done : Exit::Found);
}

} // namespace ctl
