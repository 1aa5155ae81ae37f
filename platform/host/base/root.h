// The folder that stands for the phone's file system.
#ifndef BASE_ROOT_H
#define BASE_ROOT_H

#include <string>

namespace base {

// VORN_ROOT, else $XDG_DATA_HOME/vorn, else $HOME/.local/share/vorn; an empty variable counts as
// unset. Read from the environment at each call, without a trailing '/'. The folder need not exist.
// "" when none of the three is set.
std::string rootFolder();

} // namespace base

#endif
