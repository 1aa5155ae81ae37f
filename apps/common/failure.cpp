#include "failure.h"

#include "napi.h"

namespace ctl {

const std::vector<ExitMeaning>& exitMeanings()
{
    static const std::vector<ExitMeaning> meanings = {
        {Exit::Done, "done; for doctor: nothing is wrong"},
        {Exit::Found, "doctor has found something wrong"},
        {Exit::Usage, "the command line is wrong: a command, an option, a field or a value"},
        {Exit::NoProfile, "no profile of this name is stored"},
        {Exit::Exists, "a profile of this name is stored already"},
        {Exit::Name, "the text cannot be a profile name"},
        {Exit::Damaged, "the stored record is damaged"},
        {Exit::NoRoom, "no room: the disk is full, or the largest number of profiles is reached"},
        {Exit::Access, "the file system refused, or the system does not permit it"},
        {Exit::Io, "reading or writing the stored data failed"},
        {Exit::Root, "the root folder cannot be used"},
        {Exit::OpenFailed, "the link could not be opened"},
        {Exit::Broken, "the link broke while it was held"},
        {Exit::TimedOut, "the link was not open within the time given with --timeout"},
        {Exit::Resources, "out of links, descriptors, threads or memory"},
        {Exit::Input, "an input file cannot be read or is not valid"},
        {Exit::NoEntry,
         "what is named is not there: setting, feature, device, operator, plan or SIM card"},
        {Exit::Configuration, "a configuration file below the root is damaged"},
        {Exit::Output, "the output could not be written"},
        {Exit::Password, "no password could be read"},
        {Exit::Internal, "an unexpected failure inside the program"},
        {Exit::Service, "the services that manage the network do not answer"},
        {Exit::Busy, "another program is writing the stored data and does not end"},
        {Exit::NotSynced, "done, but not confirmed by the disk: a loss of power may undo it"},
        {Exit::HungUp, "the terminal went away before the link was open"},
        {Exit::Interrupted, "ended by an interrupt (Ctrl-C) before the link was open"},
        {Exit::Pipe, "the reader of the output went away"},
        {Exit::Terminated, "ended by a request to terminate before the link was open"},
    };
    return meanings;
}

Exit exitOfResult(int result)
{
    switch (static_cast<NapiResult>(result)) {
    case NAPI_OK:
        return Exit::Done;
    case NAPI_ERR_MEMORY_FULL:
        return Exit::NoRoom;
    case NAPI_ERR_NAME:
        return Exit::Name;
    case NAPI_ERR_NO_PROFILE:
        return Exit::NoProfile;
    case NAPI_ERR_EXISTS:
        return Exit::Exists;
    case NAPI_ERR_DAMAGED:
        return Exit::Damaged;
    case NAPI_ERR_ACCESS:
    case NAPI_ERR_NOT_PERMITTED:
        return Exit::Access;
    case NAPI_ERR_IO:
        return Exit::Io;
    case NAPI_ERR_NOT_SYNCED:
        return Exit::NotSynced;
    case NAPI_ERR_ROOT:
        return Exit::Root;
    case NAPI_ERR_TOO_MANY_LINKS:
    case NAPI_ERR_RESOURCES:
        return Exit::Resources;
    case NAPI_ERR_BUSY:
        return Exit::Busy;
    case NAPI_ERR_NOT_INITIALISED:
    case NAPI_ERR_ARGUMENT:
    case NAPI_ERR_NO_LINK:
    case NAPI_ERR_LINK_NOT_UP:
    case NAPI_ERR_SOCKET:
        return Exit::Internal;
    }
    return Exit::Internal;
}

std::string notConfirmedAdvice(const std::string& where)
{
    return "After a loss of power there may be the old state or the new one; look at the kernel's "
           "messages about the disk of " +
           where + '.';
}

} // namespace ctl
