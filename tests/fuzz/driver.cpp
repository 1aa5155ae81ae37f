// Gives a fuzz target its seeds and mutations of them, always the same ones.
//
//     fuzz_TARGET COUNT PATHS...    COUNT mutated inputs besides the files and folders of files
//
// An input on which the process dies is left in crash-TARGET in the current folder; give it back
// with "fuzz_TARGET 0 crash-TARGET".
#include <algorithm>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <vector>

#include <fcntl.h>
#include <unistd.h>

#include "fuzz/target.h"

extern "C" __attribute__((weak)) void __sanitizer_set_death_callback(void (*callback)());

namespace {

using Bytes = std::vector<uint8_t>;

constexpr std::size_t largestInput = 64U << 10;

const Bytes* current = nullptr;
std::string crashFile;

// Called where nothing of the process can be relied on any more.
void keepInput()
{
    const int file = ::open(crashFile.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
    if (file < 0 || !current)
        return;
    [[maybe_unused]] const ssize_t written = ::write(file, current->data(), current->size());
    ::close(file);
}

void keepInputAndDie(int signal)
{
    keepInput();
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

Bytes contentOf(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

std::vector<Bytes> seedsIn(char** first, char** last)
{
    std::vector<std::filesystem::path> files;
    for (; first != last; ++first) {
        if (std::filesystem::is_directory(*first))
            std::copy(std::filesystem::directory_iterator(*first), {}, std::back_inserter(files));
        else
            files.emplace_back(*first);
    }
    std::sort(files.begin(), files.end());
    std::vector<Bytes> seeds;
    std::transform(files.begin(), files.end(), std::back_inserter(seeds), contentOf);
    return seeds;
}

class Mutator
{
public:
    explicit Mutator(const std::vector<Bytes>& seeds) : m_seeds(seeds) {}

    Bytes next()
    {
        Bytes bytes = anySeed();
        for (std::size_t steps = 1 + below(6); steps > 0; --steps)
            change(bytes);
        bytes.resize(std::min(bytes.size(), largestInput));
        return bytes;
    }

private:
    std::size_t below(std::size_t limit) { return limit ? m_random() % limit : 0; }
    const Bytes& anySeed() { return m_seeds[below(m_seeds.size())]; }

    Bytes::difference_type place(const Bytes& bytes, std::size_t more)
    {
        return static_cast<Bytes::difference_type>(below(bytes.size() + more));
    }

    uint8_t anyByte()
    {
        const uint8_t telling[] = {0, 1, 0x7F, 0x80, 0xFF, '"', '{', '[', '\\', '\n', '-', '9'};
        const std::size_t choice = below(2 * std::size(telling));
        return choice < std::size(telling) ? telling[choice] : static_cast<uint8_t>(below(256));
    }

    void change(Bytes& bytes)
    {
        const std::size_t kind = below(6);
        if (kind == 0 || bytes.empty()) {
            bytes.insert(bytes.begin() + place(bytes, 1), anyByte());
        } else if (kind == 1) {
            bytes[below(bytes.size())] = anyByte();
        } else if (kind == 2) {
            bytes[below(bytes.size())] ^= static_cast<uint8_t>(1U << below(8));
        } else if (kind == 3) {
            const auto from = bytes.begin() + place(bytes, 0);
            bytes.erase(from, from + std::min(bytes.end() - from, place(bytes, 0) / 4 + 1));
        } else if (kind == 4) {
            repeat(bytes);
        } else {
            const Bytes& other = anySeed();
            bytes.resize(below(bytes.size()));
            bytes.insert(bytes.end(), other.begin() + place(other, 1), other.end());
        }
    }

    void repeat(Bytes& bytes)
    {
        const auto from = bytes.begin() + place(bytes, 0);
        const Bytes part(from, from + std::min<std::ptrdiff_t>(bytes.end() - from, 64));
        for (std::size_t times = below(20); times > 0; --times)
            bytes.insert(bytes.begin() + place(bytes, 1), part.begin(), part.end());
    }

    const std::vector<Bytes>& m_seeds;
    std::mt19937 m_random; // from its usual start: every run has the same inputs
};

void give(const Bytes& bytes)
{
    current = &bytes;
    LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
}

} // namespace

int main(int argc, char** argv)
{
    const std::vector<Bytes> seeds = seedsIn(argv + std::min(argc, 2), argv + argc);
    if (seeds.empty()) {
        std::fprintf(stderr, "usage: %s COUNT SEEDS...\n", argv[0]);
        return 2;
    }
    const std::filesystem::path name = std::filesystem::path(argv[0]).filename();
    crashFile = (std::filesystem::current_path() / ("crash-" + name.string())).string();
    if (__sanitizer_set_death_callback)
        __sanitizer_set_death_callback(keepInput);
    for (const int signal : {SIGABRT, SIGSEGV, SIGBUS, SIGFPE, SIGILL})
        std::signal(signal, keepInputAndDie);

    std::for_each(seeds.begin(), seeds.end(), give);
    Mutator mutator(seeds);
    const long count = std::strtol(argv[1], nullptr, 10);
    for (long number = 0; number < count; ++number)
        give(mutator.next());
    std::fprintf(stderr, "%zu seeds and %ld mutations\n", seeds.size(), count);
    return 0;
}
