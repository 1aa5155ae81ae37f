// What others than its owner may do with a file or folder.
#ifndef BASE_RIGHTS_H
#define BASE_RIGHTS_H

#include <optional>
#include <string>
#include <sys/stat.h>

namespace base {

// Something that a person should know of a file, and what to do about it.
struct FileConcern
{
    std::string problem; // "others may read it (mode 0644)"
    std::string remedy;  // a command line: "chmod go-rw '/home/me/a file'"
};

// What others are to have no right to.
enum class Forbidden { Writing, ReadingAndWriting };

// Tells whether the group or everybody may do to `path` what they are not to. Nothing for a missing
// file, or one that cannot be looked at; a symbolic link stands for what it leads to.
std::optional<FileConcern> concernOfRights(const std::string& path, Forbidden forbidden);

// Whether this is a folder of this user's that he may not list or not enter.
bool isClosedToOwner(const struct stat& status);

// The first folder on the way to `path`, an absolute one, `path` among them, that is closed to its
// owner in this way; "" when there is none.
std::string closedFolderOnTheWay(const std::string& path);

// A word as a shell reads it: in quotes, unless it is plain.
std::string shellWord(const std::string& word);

} // namespace base

#endif
