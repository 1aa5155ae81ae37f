// Names and English texts for the results of the library and of the network API, and for the causes
// with which opening a link fails; for logs, and for people who look into them.
//
// Everything is inline and needs neither Qt nor the library, so that it serves every program on
// both Qts. The pointers are to constants that live as long as the program; none is ever null.
#ifndef VORNQTNAPI_TEXTS_H
#define VORNQTNAPI_TEXTS_H

// The results that are the library's own. Each call's header says which of them it gives, and when.
enum VornResult {
    VORN_ERR_NO_DIALOG = -1,
    VORN_ERR_NONE_CHOSEN = -100,
    VORN_ERR_NOT_INITIALISED = -101,
    VORN_ERR_INITIALISED_ALREADY = -103,
    VORN_ERR_NEGATIVE_LINK = -151
};

struct VornCode
{
    int code;
    const char* name;
    const char* text;
};

// The codes of one kind: the last entry, whose code means nothing, stands for every unknown one.
inline const VornCode& vornFindCode(const VornCode* codes, unsigned int count, int code)
{
    unsigned int at = 0;
    while (at + 1 < count && codes[at].code != code)
        ++at;
    return codes[at];
}

// The entry of a result; every positive result has that of 0.
inline const VornCode& vornResult(int result)
{
    static const VornCode codes[] = {
        {0, "NAPI_OK", "done"},
        {VORN_ERR_NO_DIALOG, "VORN_ERR_NO_DIALOG", "the dialog could not be shown or has no list"},
        {VORN_ERR_NONE_CHOSEN, "VORN_ERR_NONE_CHOSEN", "no profile was chosen"},
        {VORN_ERR_NOT_INITIALISED, "VORN_ERR_NOT_INITIALISED", "the manager is not initialised"},
        {VORN_ERR_INITIALISED_ALREADY, "VORN_ERR_INITIALISED_ALREADY",
         "the manager is initialised already"},
        {VORN_ERR_NEGATIVE_LINK, "VORN_ERR_NEGATIVE_LINK", "a link id is never negative"},
        {-152, "NAPI_ERR_MEMORY_FULL",
         "no room: the disk, the quota or the memory is full, or there are too many profiles"},
        {-201, "NAPI_ERR_NOT_INITIALISED", "the network API is not initialised"},
        {-202, "NAPI_ERR_ARGUMENT", "a wrong argument"},
        {-203, "NAPI_ERR_NAME", "not a name that a profile can have"},
        {-204, "NAPI_ERR_NO_PROFILE", "no such profile"},
        {-205, "NAPI_ERR_EXISTS", "a profile of this name exists already"},
        {-206, "NAPI_ERR_DAMAGED", "the stored profile is damaged"},
        {-207, "NAPI_ERR_ACCESS", "permission denied by the file system"},
        {-208, "NAPI_ERR_IO", "an input or output error"},
        {-209, "NAPI_ERR_ROOT", "the root folder cannot be used"},
        {-210, "NAPI_ERR_NO_LINK", "no such link"},
        {-211, "NAPI_ERR_LINK_NOT_UP", "the link is not up"},
        {-212, "NAPI_ERR_TOO_MANY_LINKS", "all link ids are in use"},
        {-213, "NAPI_ERR_SOCKET", "not a socket that can be bound to a network device"},
        {-214, "NAPI_ERR_NOT_PERMITTED", "not permitted by the kernel"},
        {-215, "NAPI_ERR_RESOURCES", "out of descriptors, threads or memory"},
        {-216, "NAPI_ERR_BUSY", "another program is writing and has not ended for 10 seconds"},
        {-217, "NAPI_ERR_NOT_SYNCED",
         "the change is made, but the disk has not confirmed that it outlives a loss of power"},
        {0, "", "a result that is not known here"}};
    return vornFindCode(codes, sizeof codes / sizeof codes[0], result > 0 ? 0 : result);
}

// The entry of a cause.
inline const VornCode& vornCause(int cause)
{
    static const VornCode codes[] = {
        {0, "NAPI_CAUSE_NONE", "no cause"},
        {1, "NAPI_CAUSE_NO_BEARER", "nothing on this device can carry this profile"},
        {2, "NAPI_CAUSE_NO_SERVICE", "no network in reach"},
        {3, "NAPI_CAUSE_SIM", "no SIM card, or it is locked"},
        {4, "NAPI_CAUSE_SUBSCRIPTION", "access point unknown or not subscribed"},
        {5, "NAPI_CAUSE_AUTHENTICATION", "user name or password refused"},
        {6, "NAPI_CAUSE_NO_ADDRESS", "the network device has no address"},
        {7, "NAPI_CAUSE_MODEM", "the modem or its dialling failed"},
        {8, "NAPI_CAUSE_NO_CARRIER", "no carrier"},
        {9, "NAPI_CAUSE_DEVICE_GONE", "the network device is not there"},
        {10, "NAPI_CAUSE_NO_SERVICE_DAEMON", "the service that manages the network does not run"},
        {11, "NAPI_CAUSE_NOT_PERMITTED", "this user may not open links"},
        {12, "NAPI_CAUSE_TIMEOUT", "no answer in time"},
        {13, "NAPI_CAUSE_CANCELLED", "cancelled by the user"},
        {14, "NAPI_CAUSE_NOT_SUPPORTED", "circuit-switched calls need a dial-up modem"},
        {15, "NAPI_CAUSE_WIFI", "the WiFi network could not be joined"},
        {16, "NAPI_CAUSE_BUSY", "busy"},
        {65535, "NAPI_CAUSE_UNKNOWN", "unknown cause"},
        {0, "", "a cause that is not known here"}};
    return vornFindCode(codes, sizeof codes / sizeof codes[0], cause);
}

// The result of any call that says "0 or a positive number is success": the name is that of the
// constant, NAPI_OK for every success and "" for a number that is no result.
//
//     int result = manager->openLink("Internet");
//     if (result < 0)
//         use(QString(vornResultText(result)) + ", " + vornResultName(result));
inline const char* vornResultName(int result)
{
    return vornResult(result).name;
}

// The text of a result, for instance "no such profile".
inline const char* vornResultText(int result)
{
    return vornResult(result).text;
}

// The first cause that openFailed() tells; the name is that of the constant, "" for an unknown one.
inline const char* vornCauseName(int cause)
{
    return vornCause(cause).name;
}

// The text of a cause, for instance "no network in reach".
inline const char* vornCauseText(int cause)
{
    return vornCause(cause).text;
}

// How the wizard has ended: what createProfilebyUser(), copyProfilebyUser() and editProfilebyUser()
// give.
inline const char* vornWizardText(int result)
{
    static const char* const texts[] = {"stored", "cancelled by the user",
                                        "closed, and nothing was stored"};
    return result >= 0 && result < 3 ? texts[result] : vornResultText(result);
}

#endif
