// Texts compared as people do: without regard to upper and lower case, in any script.
#ifndef CTL_CASELESS_H
#define CTL_CASELESS_H

#include <string>
#include <string_view>
#include <vector>

namespace ctl {

// The characters in lower case. Bytes that are no UTF-8 are equal to themselves only.
std::u32string caseless(std::string_view text);

// The words between the blanks of a text, in lower case.
std::vector<std::u32string> caselessWords(std::string_view text);

// Whether `word` stands in the text where a word of it begins: "mobile" in "t-mobile", not in
// "automobile". Both are caseless().
bool hasWord(const std::u32string& text, const std::u32string& word);

} // namespace ctl

#endif
