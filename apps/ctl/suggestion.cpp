#include "suggestion.h"

#include <algorithm>
#include <numeric>

#include "terminal_text.h"

namespace ctl {

static std::size_t distance(const std::string& a, const std::string& b)
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
    std::size_t least = std::max<std::size_t>(1, word.size() / 3) + 1;
    for (const std::string& candidate : candidates) {
        const std::size_t steps = distance(word, candidate);
        if (steps < least) {
            least = steps;
            closest = &candidate;
        }
    }
    return closest ? "Did you mean " + inQuotes(*closest) + "?" : "";
}

} // namespace ctl
