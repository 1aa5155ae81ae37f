// What the host offers beyond the phone's network API, for the programs that play the phone:
// removing and renaming profiles, looking for damage. Applications do without it.
#ifndef NAPI_HOST_H
#define NAPI_HOST_H

#include <functional>
#include <string>
#include <vector>

#include "napi.h"

namespace napihost {

// The folder that stands for the phone's file system: VORN_ROOT, else $XDG_DATA_HOME/vorn, else
// $HOME/.local/share/vorn; read from the environment at each call. It need not exist. "" when none
// of the three is set.
VORN_PLATFORM_API std::string rootFolder();

// The folder that holds one folder for each profile.
VORN_PLATFORM_API std::string profilesFolder();

// Changes some fields of a stored profile: reads its record, gives it to `change`, and stores what
// `change` has made of it, with no other writer in between, so that two who change different fields
// at once both succeed. Other writers wait meanwhile, so `change` is short, asks nobody anything,
// and calls nothing that writes profiles, which would find the store busy. What it throws goes
// through, and nothing is stored. Result: 0, or the errors of NAPI_ReadProfile and
// NAPI_ModifyProfile.
VORN_PLATFORM_API int changeProfile(const char* name,
                                    const std::function<void(NetworkProfile&)>& change);

// Removes a stored profile, a damaged one too; durable when it returns. Result: 0, or the errors of
// NAPI_ModifyProfile.
VORN_PLATFORM_API int deleteProfile(const char* name);

// Gives a stored profile another name, in one step; durable when it returns. A profile renamed to
// its own name stays as it is. Result: 0, or the errors of NAPI_ModifyProfile, and NAPI_ERR_EXISTS
// when the new name is taken.
VORN_PLATFORM_API int renameProfile(const char* name, const char* newName);

// One thing that is wrong in the store.
struct Finding
{
    std::string path;    // what is damaged: an absolute path
    std::string problem; // "record has 0 bytes instead of 1168"
    std::string remedy;  // what a person can do: "restore it from a copy, or remove it with ..."
};

// Looks through the profiles without changing anything: damaged and foreign entries, what ended
// programs have left, and rights of others where passwords are stored. Result: 0, with what was
// found in `findings`; or the errors of NAPI_ListAllProfile.
VORN_PLATFORM_API int inspectStore(std::vector<Finding>* findings);

// Looks through etc/network.json without changing anything: one finding for each thing wrong, in
// the order of the file, with "file:line" as its path; then the rights of others to change it or
// etc/resolv.conf, and what ended programs have left of them. A missing file is no finding.
VORN_PLATFORM_API std::vector<Finding> inspectNetworkConfiguration();

// A device that could carry a link over NetworkManager, whatever etc/network.json says.
struct LinkDevice
{
    NapiBearerKind kind = NAPI_BEARER_UNKNOWN; // NAPI_BEARER_GPRS of a modem, else NAPI_BEARER_WIFI
    bool wired = false;                        // an Ethernet, which may stand in for WiFi
    std::string interface;                     // "wwan0"; of a modem that is not up, its port
    std::string port;                          // NetworkManager's name of it, "cdc-wdm0"
    std::string state;                         // "disconnected", "connected", "unavailable", ...
    int cause = 0;  // why it carries no link now: a NapiCause, or 0 when it can
    int detail = 0; // of that cause, as NapiDetail says
    std::string
        problem; // what keeps it from carrying one, for people: "there is no SIM card"; or ""
    std::string remedy; // what a person can do about that
    // Of modems; "" and -1 where nothing is known.
    std::string operatorName;
    std::string operatorCode; // "26201": the country and the network
    std::string technology;   // "lte", "umts", "gsm", ...
    std::string registration; // "home", "roaming", "searching", "denied", ...
    std::string sim;          // "ready", "pin", "puk", "locked", "missing"
    int signal = -1;          // percent
};

// Asks NetworkManager and ModemManager, and waits for them as long as the limit. Result: why
// nothing is known ("NetworkManager does not run") and what a person can do about it; an empty
// problem where they have answered.
VORN_PLATFORM_API Finding listLinkDevices(std::vector<LinkDevice>* devices, int timeLimitMs);

// What keeps packet data links from opening where etc/network.json chooses NetworkManager: a
// profile without an access point name, a service that does not run, a right that is missing, no
// modem, a locked SIM, no registration.
// Nothing for other bearers. Waits as long as the limit.
VORN_PLATFORM_API std::vector<Finding> inspectLinks(int timeLimitMs);

// The operator of the SIM card as country and network, "26201"; "" without a card, or where it is
// locked or the services do not answer within the limit.
VORN_PLATFORM_API std::string simOperator(int timeLimitMs);

// Whether etc/network.json chooses the scenario bearer, whose links are only played.
VORN_PLATFORM_API bool playsScenario();

// Breaks a link of the scenario bearer that is up, as its configuration may tell, too; the
// indication follows. Result: 0. Errors: NAPI_ERR_NOT_INITIALISED, NAPI_ERR_NO_LINK,
// NAPI_ERR_LINK_NOT_UP, NAPI_ERR_ARGUMENT (another bearer carries it), NAPI_ERR_RESOURCES.
VORN_PLATFORM_API int breakLink(int linkId);

// Has the next opening with the scenario bearer fail at once with this cause and detail, each as in
// NapiIndication. Result: 0. Errors: NAPI_ERR_ARGUMENT (a cause of 0, a number that does not fit 16
// bits, or another bearer is chosen), NAPI_ERR_RESOURCES.
VORN_PLATFORM_API int failNextOpening(int cause, int detail);

// Hears of each step of the openings over NetworkManager from here on, in this process; an empty
// function ends it. It is called on a thread of the network API, and calls nothing of it. The text
// is for people, without any secret.
VORN_PLATFORM_API void
watchLinkSteps(std::function<void(int link, const std::string& text)> listener);

} // namespace napihost

// napihost::rootFolder() for those who know this library by its C interface only: the library for
// the phone asks for it where it is there. Result: 0 with the folder and a NUL in `buffer`, or
// NAPI_ERR_ARGUMENT when they do not fit into `size` bytes.
extern "C" VORN_PLATFORM_API int NAPIHOST_RootFolder(char* buffer, std::size_t size);

#endif
