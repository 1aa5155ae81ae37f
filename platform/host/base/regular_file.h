// Reading whole files that others have written.
#ifndef BASE_REGULAR_FILE_H
#define BASE_REGULAR_FILE_H

#include <cstddef>
#include <string>

namespace base {

// What reading gives, in the place of an errno, for what no system call has refused.
enum FileRefusal : int { IsFolder = -1, IsNoRegularFile = -2, IsTooLarge = -3 };

// Reads the file into `bytes`, closed on exec; a pipe or a device in its place is not waited for.
// Result: 0, an errno or a FileRefusal; `bytes` is then to be ignored.
int readRegularFile(const std::string& path, std::size_t largest, std::string* bytes);

} // namespace base

#endif
