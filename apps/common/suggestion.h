// "Did you mean ...?" for a word that is not known.
#ifndef COMMON_SUGGESTION_H
#define COMMON_SUGGESTION_H

#include <string>
#include <vector>

namespace ctl {

// The sentence `Did you mean "closest"?` for the candidate that differs from the word by the fewest
// inserted, removed, changed or swapped characters, when these are few enough for a slip; else "".
std::string suggestion(const std::string& word, const std::vector<std::string>& candidates);

} // namespace ctl

#endif
