// Looking for what is wrong with the files that libnapi keeps in etc/, without changing anything.
#include "base/configuration_folder.h"
#include "network/napi_host.h"
#include "network/network_config_reader.h"

namespace napihost {

namespace {

void inspectContent(const std::string& path, std::vector<Finding>* findings)
{
    base::JsonDocument document = base::JsonDocument::read(path);
    network::readNetworkConfig(document);
    const char* remedy =
        document.state() == base::JsonDocument::State::Unreadable
            ? "put a file in its place that its owner may read, or remove it"
            : "correct the file; network-json.md in the documentation describes it";
    for (const base::JsonProblem& problem : document.problems())
        findings->push_back({base::place(path, problem), base::sentence(problem), remedy});
}

// Everybody may read both files; who may change them decides where the phone's traffic goes.
void inspectFile(const std::string& name, std::vector<Finding>* findings)
{
    const std::string path = base::ConfigurationFolder::path() + '/' + name;
    std::string leftover;
    if (const auto concern = base::concernOfRights(path, base::Forbidden::Writing))
        findings->push_back({path, concern->problem, concern->remedy});
    if (const auto concern = base::concernOfLeftover(name, &leftover))
        findings->push_back({leftover, concern->problem, concern->remedy});
}

} // namespace

std::vector<Finding> inspectNetworkConfiguration()
{
    std::vector<Finding> findings;
    const std::string path = network::networkConfigPath();
    if (path.empty())
        return findings;
    inspectContent(path, &findings);
    inspectFile("network.json", &findings);
    inspectFile("resolv.conf", &findings);
    return findings;
}

} // namespace napihost
