#include "commands/settings_result.h"

#include "failure.h"
#include "terminal_text.h"

namespace ctl {

using settingshost::Code;

namespace {

Exit exitOf(Code code)
{
    switch (code) {
    case Code::Ok:
        return Exit::Done;
    case Code::Name:
    case Code::Number:
    case Code::Value:
        return Exit::Usage;
    case Code::NoNode:
        return Exit::NoEntry;
    case Code::Unusable:
    case Code::Broken:
        return Exit::Configuration;
    case Code::Root:
        return Exit::Root;
    case Code::Access:
        return Exit::Access;
    case Code::Full:
        return Exit::NoRoom;
    case Code::Io:
        return Exit::Io;
    case Code::Busy:
        return Exit::Busy;
    case Code::NotSynced:
        return Exit::NotSynced;
    }
    return Exit::Internal;
}

const char* adviceFor(Code code, const char* list)
{
    switch (code) {
    case Code::Ok:
        return "";
    case Code::Busy:
        return "End the other program, and try again.";
    case Code::Io:
    case Code::NotSynced:
        return "Look at the kernel's messages about the disk.";
    case Code::Name:
        return "A name has 1 to 255 bytes of UTF-8 without control characters.";
    case Code::Number:
        return "A feature number is greater than 0.";
    case Code::Value:
        return "A text has at most 4096 bytes of UTF-8.";
    case Code::NoNode:
        return list;
    case Code::Unusable:
    case Code::Broken:
        return "\"vornctl doctor\" shows everything that is wrong; mend the file with an editor.";
    case Code::Root:
        return "Set VORN_ROOT to the absolute path of a folder.";
    case Code::Access:
        return "Look at the owner and the permissions of the file and of the folders above it, and "
               "whether it is mounted read-only.";
    case Code::Full:
        return "Make room on the disk, and try again.";
    }
    return "";
}

} // namespace

void checkSettings(const settingshost::Result& result, const std::string& action, const char* list)
{
    if (result.isOk())
        return;
    // What is not confirmed is done all the same.
    const std::string cannot = result.code == Code::NotSynced ? "" : "cannot " + action + ": ";
    throw Failure(exitOf(result.code), cannot + printable(result.message) + '.',
                  adviceFor(result.code, list));
}

} // namespace ctl
