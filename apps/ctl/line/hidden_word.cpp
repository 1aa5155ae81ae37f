#include "line/hidden_word.h"

#include "terminal_text.h"

namespace ctl {

namespace {

void replaceAll(std::string& text, const std::string& what, const std::string& with)
{
    for (std::size_t at = text.find(what); at != std::string::npos;
         at = text.find(what, at + with.size()))
        text.replace(at, what.size(), with);
}

} // namespace

HiddenWord::HiddenWord(const std::vector<std::string>& words)
{
    for (std::size_t i = 0; i + 1 < words.size() && words[i] != "--"; ++i)
        if ((words[i] == "--password" || words[i] == "--csd-password") && words[i + 1][0] != '-')
            m_words.push_back(words[i + 1]);
}

Failure HiddenWord::hiddenIn(const Failure& failure) const
{
    std::string what = failure.what();
    std::string advice = failure.advice();
    for (const std::string& word : m_words) {
        replaceAll(what, inQuotes(word), "that is named behind the password's option");
        replaceAll(advice, inQuotes(word), "the word behind the password's option");
    }
    if (what != failure.what())
        advice = "A password is never given there: it is asked for. " + advice;
    return Failure(failure.status(), what, advice);
}

} // namespace ctl
