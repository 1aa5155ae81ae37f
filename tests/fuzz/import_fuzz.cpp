// A file that "vornctl profile import" is given: it is imported or refused with what is wrong.
#include <fstream>

#include "failure.h"
#include "fuzz/target.h"
#include "line/command_line.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size)
{
    const std::string path = fuzz::privateRoot() + "/imported.json";
    std::ofstream(path, std::ios::binary | std::ios::trunc) << fuzz::textOf(data, size);
    std::string words[] = {"vornctl", "profile", "import", "--replace", path};
    char* line[] = {words[0].data(), words[1].data(), words[2].data(),
                    words[3].data(), words[4].data(), nullptr};
    try {
        ctl::runCommandLine(5, line);
    } catch (const ctl::Failure& failure) {
        fuzz::require(failure.status() != ctl::Exit::Internal, "no file is an internal failure");
    }
    return 0;
}
