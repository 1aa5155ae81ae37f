// The words of a line that a person may have meant as a password: what stands behind "--password",
// which takes no value. It can be the profile's name all the same, so the line is done as it
// stands, but no message repeats the word.
#ifndef CTL_HIDDEN_WORD_H
#define CTL_HIDDEN_WORD_H

#include <string>
#include <vector>

#include "failure.h"

namespace ctl {

class HiddenWord
{
public:
    explicit HiddenWord(const std::vector<std::string>& words);

    // The failure with what stands for such a word in its place.
    Failure hiddenIn(const Failure& failure) const;

private:
    std::vector<std::string> m_words;
};

} // namespace ctl

#endif
