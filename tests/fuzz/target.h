// What a fuzz target is: a function of one input, called many times in one process. libFuzzer and
// driver.cpp call it alike.
#ifndef FUZZ_TARGET_H
#define FUZZ_TARGET_H

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

// Result: always 0. Whatever is wrong ends the process.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size);

namespace fuzz {

// Ends the process, as a sanitizer does, when something does not hold that always has to.
inline void require(bool holds, const char* what)
{
    if (holds)
        return;
    std::fprintf(stderr, "does not hold: %s\n", what);
    std::abort();
}

inline std::string textOf(const uint8_t* data, std::size_t size)
{
    return {reinterpret_cast<const char*>(data), size};
}

// A root of its own for this process, below the folder for temporary files, with VORN_ROOT naming
// it and being the current folder; removed when the process ends in the usual way. The terminal and
// the standard input are out of reach, the standard output is dropped, and nothing waits for the
// disk.
const std::string& privateRoot();

} // namespace fuzz

#endif
