// Files that the person names on the command line.
#ifndef CTL_FILES_H
#define CTL_FILES_H

#include <cstddef>
#include <string>

#include "failure.h"

namespace ctl {

// Reads a whole file, or the standard input for "-". Throws Failure with `status` when it cannot be
// read or holds more than `limit` bytes.
std::string readFile(const std::string& path, std::size_t limit, Exit status);

// Writes a file that only its owner can read, whole or not at all: a file that was there stays
// until the new one is complete. Throws Failure with Exit::Output.
void writePrivateFile(const std::string& path, const std::string& bytes);

} // namespace ctl

#endif
