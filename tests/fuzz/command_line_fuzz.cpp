// Any words behind "vornctl", one a line of the input: something is done, or it is said what is
// wrong. Left out are commands that open a link, which wait for it, and paths, which might be those
// of files that somebody wants to keep.
#include <algorithm>
#include <sstream>
#include <vector>

#include "failure.h"
#include "fuzz/target.h"
#include "line/command_line.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size)
{
    fuzz::privateRoot();
    std::istringstream input(fuzz::textOf(data, size));
    std::vector<std::string> words{"vornctl"};
    for (std::string word; std::getline(input, word) && words.size() < 100;)
        words.push_back(word.substr(0, word.find('\0')));
    for (const std::string& word : words) {
        if (word == "open" || word.find('/') != std::string::npos)
            return 0;
    }
    std::vector<char*> line;
    std::transform(words.begin(), words.end(), std::back_inserter(line),
                   [](std::string& word) { return word.data(); });
    line.push_back(nullptr);
    try {
        ctl::runCommandLine(static_cast<int>(words.size()), line.data());
    } catch (const ctl::Failure& failure) {
        fuzz::require(failure.status() != ctl::Exit::Internal, "no line is an internal failure");
    }
    return 0;
}
