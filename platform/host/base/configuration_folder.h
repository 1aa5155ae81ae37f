// The folder etc/ below the root, in which the files lie that tell programs how the phone is set
// up.
#ifndef BASE_CONFIGURATION_FOLDER_H
#define BASE_CONFIGURATION_FOLDER_H

#include <optional>
#include <string>
#include <string_view>
#include <sys/types.h>

#include "base/locked_folder.h"
#include "base/rights.h"
#include "base/unique_fd.h"

namespace base {

// Opened for changing files. Every program may read what is in it, whoever it runs as, and who may
// read a folder may lock it; so the writers' lock lies on the root, which is its owner's alone.
class ConfigurationFolder
{
public:
    // "" when there is no root.
    static std::string path();

    // Makes the folder and the root where they are missing, and waits for other writers as
    // LockedFolder does. Result: 0 or an errno. Call it once for an object.
    int open();

    // Replaces or makes the file `name` in it, as replaceFile() does and with its results.
    int replace(const std::string& name, std::string_view bytes, mode_t mode);

private:
    LockedFolder m_root;
    UniqueFd m_folder;
};

// Tells whether a program was ended while it wrote the file `name` there, and has left a file of
// another name. Nothing while some program is writing, for then that file may be its own.
// `leftover` is the path of what was left.
std::optional<FileConcern> concernOfLeftover(const std::string& name, std::string* leftover);

} // namespace base

#endif
