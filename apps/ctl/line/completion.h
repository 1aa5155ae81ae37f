// Candidates for the shell's completion.
#ifndef CTL_COMPLETION_H
#define CTL_COMPLETION_H

#include <string>
#include <vector>

#include <CLI/App.hpp>

namespace ctl {

// What can stand in the place of the last of `words`, the words behind the program's name. "@files"
// asks for names of files. Names of profiles stand as they are, not quoted for a shell. Nothing is
// printed and nothing fails: what cannot be read gives no candidates.
std::vector<std::string> candidates(const CLI::App& app, const std::vector<std::string>& words);

} // namespace ctl

#endif
