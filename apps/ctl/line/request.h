// What one command line asks for.
#ifndef CTL_REQUEST_H
#define CTL_REQUEST_H

#include <string>
#include <vector>

namespace ctl {

struct Request
{
    std::string name;
    std::string newName;
    std::vector<std::string> names;
    std::vector<std::string> words;       // of a search
    std::vector<std::string> assignments; // FIELD=VALUE
    std::string file;
    std::string value;
    std::string type;
    std::string passwordFile;
    std::string csdPasswordFile;
    std::string fields; // names with commas between them; "" for the usual ones
    std::string operatorWords;
    std::string plan;
    std::string timeout; // seconds; "" waits without an end
    bool json = false;
    bool showSecrets = false;
    bool askPassword = false;
    bool askCsdPassword = false;
    bool onlyNames = false;
    bool all = false;
    bool raw = false;
    bool replace = false;
    bool hold = false;
    bool terse = false;
    bool fromSim = false;
    bool verbose = false;
};

// The commands. Each throws Failure when it cannot do what was asked, and returns the exit status.
int profileList(const Request& request);
int profileShow(const Request& request);
int profileCreate(const Request& request);
int profileSet(const Request& request);
int profileCopy(const Request& request);
int profileRename(const Request& request);
int profileDelete(const Request& request);
int profileExport(const Request& request);
int profileImport(const Request& request);
int linkOpen(const Request& request);
int operatorSearch(const Request& request);
int deviceList(const Request& request);
int deviceShow(const Request& request);
int settingGet(const Request& request);
int settingSet(const Request& request);
int settingDelete(const Request& request);
int settingList(const Request& request);
int featureGet(const Request& request);
int featureSet(const Request& request);
int featureDelete(const Request& request);
int featureList(const Request& request);
int doctor(const Request& request);

} // namespace ctl

#endif
