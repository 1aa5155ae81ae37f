// "Did you mean ...?": for a slip of the fingers, and not for another word.
#include "suggestion.h"

#include <gtest/gtest.h>

namespace {

struct Row
{
    const char* name;
    const char* word;
    std::vector<std::string> candidates;
    const char* said;
};

void PrintTo(const Row& row, std::ostream* out)
{
    *out << row.name;
}

class Suggestion : public testing::TestWithParam<Row>
{};

TEST_P(Suggestion, IsWhatASlipMayHaveMeant)
{
    EXPECT_EQ(ctl::suggestion(GetParam().word, GetParam().candidates), GetParam().said);
}

INSTANTIATE_TEST_SUITE_P(
    Words, Suggestion,
    testing::Values(
        Row{"LetterLeftOut", "Hme", {"Home"}, "Did you mean \"Home\"?"},
        Row{"LetterTooMany", "Homee", {"Home"}, "Did you mean \"Home\"?"},
        Row{"LetterChanged", "Hame", {"Home"}, "Did you mean \"Home\"?"},
        Row{"TwoLettersSwapped", "hlep", {"feature", "help"}, "Did you mean \"help\"?"},
        Row{"TwoLettersOfTwoSwapped", "bA", {"Ab"}, ""},
        Row{"TheClosestOfSeveral", "profle", {"prefer", "profile"}, "Did you mean \"profile\"?"},
        Row{"LastLetterOfThree", "lis", {"list"}, "Did you mean \"list\"?"},
        Row{"SecondOfThree", "gat", {"get"}, "Did you mean \"get\"?"},
        Row{"OneWideLetterOfThree", "网路Ä", {"网络Ä"}, "Did you mean \"网络Ä\"?"},
        Row{"AnotherLetter", "B", {"A"}, ""}, Row{"AnotherWideLetter", "丁", {"一"}, ""},
        Row{"HalfOfTwoLetters", "Ac", {"Ab"}, ""}, Row{"OneLetterMore", "A", {"Ab"}, ""},
        Row{"AnotherWord", "xyzzy", {"profile", "link"}, ""},
        Row{"NothingToChooseFrom", "Home", {}, ""}, Row{"EmptyWord", "", {"A"}, ""},
        Row{"BytesThatAreNoText", "\xff\x80\x80", {"Home"}, ""}),
    [](const auto& row) { return std::string(row.param.name); });

} // namespace
