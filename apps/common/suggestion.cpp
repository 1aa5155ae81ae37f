#include "suggestion.h"

#include <algorithm>
#include <numeric>

#include "terminal_text.h"

namespace ctl {

namespace {

// The characters of UTF-8, with small Latin letters for capital ones; a byte that is no UTF-8
// counts with the one before it.
std::vector<std::string> charactersOf(const std::string& text)
{
    std::vector<std::string> characters;
    for (const char byte : text) {
        const bool continues = (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
        if (continues && !characters.empty())
            characters.back() += byte;
        else
            characters.emplace_back(
                1, byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : byte);
    }
    return characters;
}

// How many characters are inserted, removed or changed, or change places with the next one.
std::size_t distance(const std::vector<std::string>& a, const std::vector<std::string>& b)
{
    std::vector<std::vector<std::size_t>> steps(a.size() + 1,
                                                std::vector<std::size_t>(b.size() + 1));
    std::iota(steps[0].begin(), steps[0].end(), 0U);
    for (std::size_t i = 1; i <= a.size(); ++i) {
        steps[i][0] = i;
        for (std::size_t j = 1; j <= b.size(); ++j) {
            const std::size_t changed = steps[i - 1][j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1);
            steps[i][j] = std::min({steps[i - 1][j] + 1, steps[i][j - 1] + 1, changed});
            if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1])
                steps[i][j] = std::min(steps[i][j], steps[i - 2][j - 2] + 1);
        }
    }
    return steps[a.size()][b.size()];
}

} // namespace

std::string suggestion(const std::string& word, const std::vector<std::string>& candidates)
{
    const std::string* closest = nullptr;
    const std::vector<std::string> typed = charactersOf(word);
    std::size_t least = std::max<std::size_t>(1, typed.size() / 3) + 1;
    for (const std::string& candidate : candidates) {
        const std::vector<std::string> known = charactersOf(candidate);
        const std::size_t steps = distance(typed, known);
        // Of very short words, a single step makes another word and not a slip.
        if (steps < least && 2 * steps < std::max(typed.size(), known.size())) {
            least = steps;
            closest = &candidate;
        }
    }
    return closest ? "Did you mean " + inQuotes(*closest) + "?" : "";
}

} // namespace ctl
