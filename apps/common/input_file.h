// Files that the person names to be read.
#ifndef COMMON_INPUT_FILE_H
#define COMMON_INPUT_FILE_H

#include <cstddef>
#include <string>

#include "failure.h"

namespace ctl {

// Reads a whole file, or the standard input for "-". Throws Failure with `status` when it cannot be
// read or holds more than `limit` bytes; the message calls it `shown`, by default by its name.
std::string readFile(const std::string& path, std::size_t limit, Exit status,
                     const std::string& shown = {});

} // namespace ctl

#endif
