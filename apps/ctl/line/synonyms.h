// Words that people know from other programs, and what they are called here.
#ifndef CTL_SYNONYMS_H
#define CTL_SYNONYMS_H

#include <string>

namespace ctl {

// What to type instead of a word that is no command: `Did you mean "vornctl profile list"?`, every
// command that it can stand for. `group` is the group in which it stands, "" for none. "" when the
// word is not known here either.
std::string synonymAdvice(const std::string& group, const std::string& word);

} // namespace ctl

#endif
