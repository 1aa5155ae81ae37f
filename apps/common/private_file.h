// Files that the person names to be written, and that nobody else may read.
#ifndef COMMON_PRIVATE_FILE_H
#define COMMON_PRIVATE_FILE_H

#include <string>

namespace ctl {

// Puts a new file of mode 0600 in the place that the path names, whole or not at all: a file that
// was there stays until the new one is complete and on the disk. Throws Failure with Exit::Output,
// and has then touched nothing, when something else than a regular file of this user is there (a
// link, a pipe, a device, a folder, a file of another user), when the file system cannot keep a
// file from other users, and when writing fails.
void writePrivateFile(const std::string& path, const std::string& bytes);

} // namespace ctl

#endif
