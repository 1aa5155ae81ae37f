#include "suggestion.h"

#include <algorithm>
#include <numeric>

#include "terminal_text.h"

namespace ctl {

// The characters of UTF-8; a byte that is none of it counts with the one before it.
static std::vector<std::string> charactersOf(const std::string& text)
{
    std::vector<std::string> characters;
    for (const char byte : text) {
        const bool continues = (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
        if (continues && !characters.empty())
            characters.back() += byte;
        else
            characters.emplace_back(1, byte);
    }
    return characters;
}

static std::size_t distance(const std::vector<std::string>& a, const std::vector<std::string>& b)
{
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), 0U);
    for (std::size_t i = 1; i <= a.size(); ++i) {
        std::size_t diagonal = row[0];
        row[0] = i;
        for (std::size_t j = 1; j <= b.size(); ++j) {
            const std::size_t changed = diagonal + (a[i - 1] == b[j - 1] ? 0 : 1);
            diagonal = row[j];
            row[j] = std::min({row[j] + 1, row[j - 1] + 1, changed});
        }
    }
    return row.back();
}

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
