// The platform network API: it keeps the network profiles and manages the data links.
//
// Every call is made from any thread unless it says otherwise, returns at once unless it says
// otherwise, and never throws. Results: 0 or a positive number is success, a negative number is one
// of the NAPI_ERR_ constants below. Texts are NUL-terminated UTF-8.
//
// Several NAPI_Init in one process are counted; the network API ends with as many NAPI_Fini. The
// profile calls work without NAPI_Init.
#ifndef NAPI_H
#define NAPI_H

#include <stddef.h>
#include <stdint.h>

#include "platform_export.h"

// What the calls give beside positive numbers.
enum NapiResult {
    NAPI_OK = 0,
    // No room: the disk or the quota is full, or NAPI_GetMaxProfiles() profiles exist already.
    NAPI_ERR_MEMORY_FULL = -152,
    // A link call came before NAPI_Init or after the last NAPI_Fini.
    NAPI_ERR_NOT_INITIALISED = -201,
    // A null pointer, an unknown item or mode, or a buffer shorter than the item.
    NAPI_ERR_ARGUMENT = -202,
    // The text is no profile name: see "Profile names" below. Nothing was touched.
    NAPI_ERR_NAME = -203,
    // No profile of this name is stored.
    NAPI_ERR_NO_PROFILE = -204,
    // A profile of this name is stored already.
    NAPI_ERR_EXISTS = -205,
    // The stored record is no regular file of 1168 bytes, or cannot be read through.
    NAPI_ERR_DAMAGED = -206,
    // The file system refused: permissions, or mounted read-only.
    NAPI_ERR_ACCESS = -207,
    // Reading or writing failed for another reason (an I/O error of the disk).
    NAPI_ERR_IO = -208,
    // The folder that stands for the phone's file system cannot be used: VORN_ROOT or one of the
    // folders on the way to the profiles is a file, or VORN_ROOT is not an absolute path.
    NAPI_ERR_ROOT = -209,
    // No link has this id: it was never opened, has failed, or is closed already.
    NAPI_ERR_NO_LINK = -210,
    // The link is still opening, or has broken: it has no device now.
    NAPI_ERR_LINK_NOT_UP = -211,
    // All NAPI_MAX_LINKS link ids are in use.
    NAPI_ERR_TOO_MANY_LINKS = -212,
    // The descriptor is closed or is not a socket that can be bound to a network device.
    NAPI_ERR_SOCKET = -213,
    // The kernel does not let this process do it (a second binding of one socket, for instance).
    NAPI_ERR_NOT_PERMITTED = -214,
    // The process or the machine has run out of descriptors, threads or memory.
    NAPI_ERR_RESOURCES = -215,
    // Another program has been writing for 10 seconds and has not ended. Nothing was touched; the
    // call may be made again.
    NAPI_ERR_BUSY = -216,
    // The change stands and everybody sees it, but the disk has not confirmed its last step: after
    // a loss of power there may be the old state or the new one.
    NAPI_ERR_NOT_SYNCED = -217
};

// Profile names: 1 to 63 bytes of valid UTF-8 without '/', without control characters (U+0000 to
// U+001F, U+007F to U+009F), and not beginning with '.'. Compared byte by byte.
enum { NAPI_PROFILE_NAME_MAX = 63, NAPI_PROFILE_NAME_SLOT = 64 };

// Connection preference: NetworkProfile.flags & NAPI_PREFER_MASK.
enum NapiPreference {
    NAPI_PREFER_MASK = 0xF00,
    NAPI_PREFER_WIFI_ONLY = 0x100,
    NAPI_PREFER_WIFI_THEN_CELLULAR = 0x200,
    NAPI_PREFER_CELLULAR_ONLY = 0x400
};

// One network profile as it is stored and exchanged: 1168 bytes, little-endian.
// Texts are UTF-8, ended by a NUL unless they fill their field. IPv4 addresses are the number of
// the address with the first dotted number in the most significant byte (10.1.2.3 is 0x0A010203); 0
// means none. The bytes named kept... belong to the network API: whoever changes a profile carries
// them through as they were read, and gives zeros in a new profile.
struct NetworkProfile
{
    uint8_t kept0;
    uint8_t storedMark; // 1 in every record that the profile wizard has stored
    uint8_t kept2[2];
    uint32_t flags;         // NAPI_PREFER_MASK: the connection preference; all other bits are kept
    char gprsApn[100];      // access point name (3GPP TS 23.003, clause 9)
    char gprsUserName[100]; // for PAP and CHAP towards the access point
    char gprsPassword[100]; // the same
    uint8_t kept308[4];
    uint32_t gprsDns1;    // IPv4 address or 0
    uint32_t gprsDns2;    // IPv4 address or 0
    uint16_t gprsTimeout; // idle time-out in minutes, 0 = none
    uint8_t kept322[58];
    uint8_t qosPolicy;    // 0 data, 1 voice
    char csdNumber[44];   // number to dial for a circuit-switched call
    char csdUserName[64]; // for PAP and CHAP on the dialled line
    char csdPassword[64]; // the same
    uint8_t kept553[7];
    uint32_t csdDns1;    // IPv4 address or 0
    uint32_t csdDns2;    // IPv4 address or 0
    uint16_t csdTimeout; // idle time-out in minutes, 0 = none
    uint8_t kept570;
    uint8_t csdSpeed; // bearer speed code of +CBST (3GPP TS 27.007, clause 6.7), 0 = automatic
    uint8_t kept572[188];
    char proxy1[100];  // host name or address of the first proxy
    uint16_t port1;    // 0 = none
    char domain1[100]; // what it serves
    uint8_t kept962;
    char proxy2[100]; // the second proxy
    uint8_t kept1063;
    uint16_t port2;    // 0 = none
    char domain2[100]; // what it serves
    uint8_t kept1166[2];
};

static_assert(sizeof(NetworkProfile) == 1168, "a stored record is 1168 bytes");
static_assert(offsetof(NetworkProfile, storedMark) == 1, "fixed by the stored format");
static_assert(offsetof(NetworkProfile, flags) == 4, "fixed by the stored format");
static_assert(offsetof(NetworkProfile, gprsApn) == 8, "fixed by the stored format");
static_assert(offsetof(NetworkProfile, gprsUserName) == 108, "fixed by the stored format");
static_assert(offsetof(NetworkProfile, gprsPassword) == 208, "fixed by the stored format");
static_assert(offsetof(NetworkProfile, gprsDns1) == 312, "fixed by the stored format");
static_assert(offsetof(NetworkProfile, gprsDns2) == 316, "fixed by the stored format");
static_assert(offsetof(NetworkProfile, gprsTimeout) == 320, "fixed by the stored format");
static_assert(offsetof(NetworkProfile, qosPolicy) == 380, "fixed by the stored format");
static_assert(offsetof(NetworkProfile, csdNumber) == 381, "fixed by the stored format");
static_assert(offsetof(NetworkProfile, csdUserName) == 425, "fixed by the stored format");
static_assert(offsetof(NetworkProfile, csdPassword) == 489, "fixed by the stored format");
static_assert(offsetof(NetworkProfile, csdDns1) == 560, "fixed by the stored format");
static_assert(offsetof(NetworkProfile, csdDns2) == 564, "fixed by the stored format");
static_assert(offsetof(NetworkProfile, csdTimeout) == 568, "fixed by the stored format");
static_assert(offsetof(NetworkProfile, csdSpeed) == 571, "fixed by the stored format");
static_assert(offsetof(NetworkProfile, proxy1) == 760, "fixed by the stored format");
static_assert(offsetof(NetworkProfile, port1) == 860, "fixed by the stored format");
static_assert(offsetof(NetworkProfile, domain1) == 862, "fixed by the stored format");
static_assert(offsetof(NetworkProfile, proxy2) == 963, "fixed by the stored format");
static_assert(offsetof(NetworkProfile, port2) == 1064, "fixed by the stored format");
static_assert(offsetof(NetworkProfile, domain2) == 1066, "fixed by the stored format");

// What an indication message reports.
enum NapiIndicationType {
    NAPI_IND_DEFAULT_LINK = 3, // link 0, which somebody else opened, is up
    NAPI_IND_CONNECTED = 16,   // the link is up
    NAPI_IND_OPEN_FAILED = 17, // opening has failed; the link id is free again
    NAPI_IND_BROKEN = 32 // an established link is gone; its id stays taken until NAPI_CloseLink
};

// Why opening failed: NapiIndication.cause1. cause2 is a detail, as NapiDetail says.
enum NapiCause {
    NAPI_CAUSE_NONE = 0,
    NAPI_CAUSE_NO_BEARER = 1,          // nothing on this device can carry this profile
    NAPI_CAUSE_NO_SERVICE = 2,         // no network in reach
    NAPI_CAUSE_SIM = 3,                // no SIM card, or it is locked
    NAPI_CAUSE_SUBSCRIPTION = 4,       // access point unknown or not subscribed
    NAPI_CAUSE_AUTHENTICATION = 5,     // user name or password refused
    NAPI_CAUSE_NO_ADDRESS = 6,         // the network gave no address
    NAPI_CAUSE_MODEM = 7,              // modem or dialling
    NAPI_CAUSE_NO_CARRIER = 8,         // no carrier
    NAPI_CAUSE_DEVICE_GONE = 9,        // the network device went away
    NAPI_CAUSE_NO_SERVICE_DAEMON = 10, // the service that manages the network does not run
    NAPI_CAUSE_NOT_PERMITTED = 11,     // this user may not open links
    NAPI_CAUSE_TIMEOUT = 12,           // no answer in time
    NAPI_CAUSE_CANCELLED = 13,         // the user cancelled
    NAPI_CAUSE_NOT_SUPPORTED = 14,     // a circuit-switched call without a dial-up modem
    NAPI_CAUSE_WIFI = 15,              // WiFi association failed
    NAPI_CAUSE_BUSY = 16,              // called party or radio resource busy
    NAPI_CAUSE_UNKNOWN = 65535
};

// What NapiIndication.cause2 says about the cause: 0 is nothing more, any other value one of these
// numbers plus a code of its own.
enum NapiDetail {
    NAPI_DETAIL_EQUIPMENT = 0x0000, // the modem's +CME ERROR code (3GPP TS 27.007, clause 9.2)
    NAPI_DETAIL_REASON = 0x0100,    // NetworkManager's NMDeviceStateReason, 0 to 255
    NAPI_DETAIL_ERRNO = 0x0300      // an errno; 0x0384 (ERFKILL): the user has switched it off
};

// What carries a link: NapiIndication.infoByte of types 16, 3 and 32.
enum NapiBearerKind {
    NAPI_BEARER_UNKNOWN = 0,
    NAPI_BEARER_GPRS = 1,
    NAPI_BEARER_CSD = 2,
    NAPI_BEARER_WIFI = 3
};

// One message on the indication socket: exactly 112 bytes, native byte order. Whole messages follow
// each other without anything between them.
struct NapiIndication
{
    uint16_t type;      // NapiIndicationType; receivers ignore values they do not know
    uint8_t linkId;     // 0..255
    uint8_t infoByte;   // NapiBearerKind
    char infoText[100]; // NUL-terminated: the link's network device, "" when it has none
    uint32_t infoWord;  // the link's IPv4 address, first octet in the most significant byte, or 0
    uint16_t cause1;    // NapiCause, type 17 only, else 0
    uint16_t cause2;    // NapiDetail and a code, type 17 only, else 0
};

static_assert(sizeof(NapiIndication) == 112, "an indication message is 112 bytes");
static_assert(offsetof(NapiIndication, linkId) == 2, "fixed by the message format");
static_assert(offsetof(NapiIndication, infoByte) == 3, "fixed by the message format");
static_assert(offsetof(NapiIndication, infoText) == 4, "fixed by the message format");
static_assert(offsetof(NapiIndication, infoWord) == 104, "fixed by the message format");
static_assert(offsetof(NapiIndication, cause1) == 108, "fixed by the message format");
static_assert(offsetof(NapiIndication, cause2) == 110, "fixed by the message format");

// Links have ids 0..255; the lowest free id is given first.
enum { NAPI_MAX_LINKS = 256 };

// As many bytes of messages wait for a receiver that does not read, beside what its socket takes.
enum { NAPI_MAX_UNREAD = 1048576 };

// Items of NAPI_GetDeviceInfo.
enum NapiDeviceItem {
    NAPI_DEVICE_NAME = 0,   // char[16], NUL-terminated: the network device, for instance "wwan0"
    NAPI_DEVICE_ADDRESS = 2 // uint32_t: its IPv4 address, first octet in the most significant byte
};

extern "C" {

// Starts the network API, or counts one user more when it runs already. `mode` is 0 or 4; the host
// treats both alike.
// Result: the caller's indication socket (>= 0), a stream socket on which every link's messages of
// this process arrive; the caller owns the descriptor and closes it. It hears of what happens from
// now on. A caller that does not read holds nobody up and loses nothing until more than
// NAPI_MAX_UNREAD bytes wait for it: then, and where there is no memory for a message, its stream
// ends, so that no message is ever missing from within it. The last NAPI_Fini ends the stream, too.
// A forked child has no network API and may start its own. Errors: NAPI_ERR_ARGUMENT (another
// mode), NAPI_ERR_RESOURCES.
VORN_PLATFORM_API int NAPI_Init(int mode);

// Takes back one NAPI_Init. With the last one the network API ends: openings still under way are
// given up without a message, links that are up stay up and keep their ids for the next NAPI_Init,
// which tells with NAPI_IND_BROKEN when one of them has gone meanwhile.
// Waits for the network API's thread to end and, up to half a second, for a network service that is
// taking a connection down. Result: 0, or NAPI_ERR_NOT_INITIALISED.
VORN_PLATFORM_API int NAPI_Fini();

// Begins to open a link for the stored profile `name`. The outcome follows on the indication
// socket: exactly one of NAPI_IND_CONNECTED and NAPI_IND_OPEN_FAILED, unless NAPI_CloseLink comes
// first. Result: the link id (0..255). Errors: NAPI_ERR_NOT_INITIALISED, NAPI_ERR_ARGUMENT (null),
// NAPI_ERR_NAME, NAPI_ERR_NO_PROFILE, NAPI_ERR_DAMAGED, NAPI_ERR_ACCESS, NAPI_ERR_IO,
// NAPI_ERR_ROOT, NAPI_ERR_TOO_MANY_LINKS, NAPI_ERR_RESOURCES.
VORN_PLATFORM_API int NAPI_OpenLink(const char* name);

// Closes a link, or cancels its opening; the id is free afterwards. When it has returned, no
// message of this opening is written any more; one that was written before may still be unread. An
// opening that has failed meanwhile is NAPI_ERR_NO_LINK, and its NAPI_IND_OPEN_FAILED comes.
// Result: 0. Errors: NAPI_ERR_NOT_INITIALISED, NAPI_ERR_NO_LINK.
VORN_PLATFORM_API int NAPI_CloseLink(int linkId);

// Binds an open IPv4 or IPv6 socket to the link's network device, so that all its traffic takes
// this link. Call it before the socket connects. Result: 0. Errors: NAPI_ERR_NOT_INITIALISED,
// NAPI_ERR_NO_LINK, NAPI_ERR_LINK_NOT_UP, NAPI_ERR_SOCKET, NAPI_ERR_NOT_PERMITTED (an unprivileged
// process may bind a socket only once), NAPI_ERR_IO, NAPI_ERR_RESOURCES.
VORN_PLATFORM_API int NAPI_BindSocket2Link(int linkId, int socket);

// Tells one item (NapiDeviceItem) of an established link's device. `length` is the size of `buffer`
// in bytes: at least 16 for the name, at least 4 for the address; exactly 16 or 4 bytes are
// written, and none on an error. Result: 0. Errors: NAPI_ERR_NOT_INITIALISED, NAPI_ERR_NO_LINK,
// NAPI_ERR_LINK_NOT_UP, NAPI_ERR_ARGUMENT, NAPI_ERR_RESOURCES.
VORN_PLATFORM_API int NAPI_GetDeviceInfo(int linkId, int item, void* buffer, int length);

// Makes the system name resolver use the link's name servers: those of its profile, else those that
// the network gave, else those that this machine uses itself. Writes etc/resolv.conf below the
// root, whole or not at all, and waits for the disk. Result: 0. Errors: NAPI_ERR_NOT_INITIALISED,
// NAPI_ERR_NO_LINK, NAPI_ERR_LINK_NOT_UP, NAPI_ERR_MEMORY_FULL, NAPI_ERR_ACCESS, NAPI_ERR_IO,
// NAPI_ERR_ROOT, NAPI_ERR_RESOURCES, NAPI_ERR_BUSY (waits as NAPI_CreateProfile
// does), and NAPI_ERR_NOT_SYNCED: the file is written.
VORN_PLATFORM_API int NAPI_DnsResolverConfig(int linkId);

// Lists the stored profiles, sorted by name (byte by byte). With a null `buffer` the number of
// profiles is stored in `*count`. Otherwise `*count` says how many slots of NAPI_PROFILE_NAME_SLOT
// bytes `buffer` has; up to that many are filled, each with a NUL-terminated name, and their number
// is stored in `*count`. Damaged profiles are not listed. No stored profile, and no root yet, is 0
// with a count of 0. Errors (with `*count` unchanged): NAPI_ERR_ARGUMENT (null `count`),
// NAPI_ERR_ACCESS, NAPI_ERR_IO, NAPI_ERR_ROOT, NAPI_ERR_RESOURCES.
VORN_PLATFORM_API int NAPI_ListAllProfile(char* buffer, unsigned int* count);

// The largest number of profiles that the network API keeps; never 0.
VORN_PLATFORM_API unsigned int NAPI_GetMaxProfiles();

// Reads the profile `name` into `*out`; `*out` is unchanged on an error. The last two arguments are
// 0. Result: 0. Errors: NAPI_ERR_ARGUMENT (null), NAPI_ERR_NAME, NAPI_ERR_NO_PROFILE,
// NAPI_ERR_DAMAGED, NAPI_ERR_ACCESS, NAPI_ERR_IO, NAPI_ERR_ROOT, NAPI_ERR_RESOURCES.
VORN_PLATFORM_API int NAPI_ReadProfile(const char* name, NetworkProfile* out, int reserved1,
                                       int reserved2);

// Stores a new profile; it is on the disk when the call returns, whole or not at all. Waits for
// another process that is writing, 10 seconds at the longest. The last two arguments are 0. Result:
// 0. Errors: NAPI_ERR_ARGUMENT (null), NAPI_ERR_NAME, NAPI_ERR_EXISTS, NAPI_ERR_MEMORY_FULL,
// NAPI_ERR_ACCESS, NAPI_ERR_IO, NAPI_ERR_ROOT, NAPI_ERR_RESOURCES, NAPI_ERR_BUSY, and
// NAPI_ERR_NOT_SYNCED: the profile is stored.
VORN_PLATFORM_API int NAPI_CreateProfile(const char* name, const NetworkProfile* record,
                                         int reserved1, int reserved2);

// Replaces the record of a stored profile, a damaged one too; as durable and as whole as
// NAPI_CreateProfile. The last two arguments are 0. Result: 0. Errors: NAPI_ERR_ARGUMENT (null),
// NAPI_ERR_NAME, NAPI_ERR_NO_PROFILE, NAPI_ERR_MEMORY_FULL, NAPI_ERR_ACCESS, NAPI_ERR_IO,
// NAPI_ERR_ROOT, NAPI_ERR_RESOURCES, NAPI_ERR_BUSY, and NAPI_ERR_NOT_SYNCED: the record is
// replaced.
VORN_PLATFORM_API int NAPI_ModifyProfile(const char* name, const NetworkProfile* record,
                                         int reserved1, int reserved2);

// Tells whether `name` is a stored profile with a usable record. Result: 0 when it is. Errors:
// NAPI_ERR_ARGUMENT (null), NAPI_ERR_NAME, NAPI_ERR_NO_PROFILE, NAPI_ERR_DAMAGED, NAPI_ERR_ACCESS,
// NAPI_ERR_IO, NAPI_ERR_ROOT, NAPI_ERR_RESOURCES.
VORN_PLATFORM_API int NAPI_IsProfileValid(const char* name);

} // extern "C"

#endif
