// Documents that are no JSON, and values of another kind than the one asked for.
#include <gtest/gtest.h>

#include "settings/json_told.h"

using base::JsonDocument;
using base::JsonValue;

struct BrokenFile
{
    const char* name;
    std::string text;
    const char* told; // the beginning of the one problem
};

static void PrintTo(const BrokenFile& row, std::ostream* out)
{
    *out << row.name;
}

class BrokenJson : public testing::TestWithParam<BrokenFile>
{};

TEST_P(BrokenJson, IsReportedOnceWithItsLineAndGivesTheDefaults)
{
    const JsonDocument document = parsed(GetParam().text);
    EXPECT_EQ(document.state(), JsonDocument::State::Broken);
    EXPECT_FALSE(document.root().present());
    EXPECT_EQ(document.root().at("delay").integer(0, 9, 7), 7);
    const Lines lines = told(document);
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_EQ(lines[0].rfind(GetParam().told, 0), 0U) << lines[0];
    EXPECT_NE(lines[0].find("; using the defaults instead"), std::string::npos) << lines[0];
}

INSTANTIATE_TEST_SUITE_P(
    Texts, BrokenJson,
    testing::Values(
        BrokenFile{"Empty", "", "a.json:1: expected JSON, found the end of the file"},
        BrokenFile{"OnlyBlankLines", "\n\n\n", "a.json:3: expected JSON, found "},
        BrokenFile{"MissingBrace", "{\n \"a\": 1\n", "a.json:2: expected JSON, found "},
        BrokenFile{"MissingComma", "{\n\"a\": 1\n\"b\": 2}",
                   "a.json:3: expected JSON, found a syntax error at column 3"},
        BrokenFile{"TrailingComma", "{\n\"a\": 1,\n}",
                   "a.json:3: expected JSON, found a syntax error at column 1"},
        BrokenFile{"TextAfterTheEnd", "{}\n\nx", "a.json:3: expected JSON, found "},
        BrokenFile{"SingleQuotes", "{\n'a': 1}",
                   "a.json:2: expected JSON, found a syntax error at column 1"},
        BrokenFile{"Comment", "// none\n{}", "a.json:1: expected JSON, found "},
        BrokenFile{"OpenText", "{\"a\":\n\"x", "a.json:2: expected JSON, found "},
        BrokenFile{"NewlineInText", "{\"a\":\n\"x\ny\"}", "a.json:2: expected JSON, found "},
        BrokenFile{"ByteThatIsNoUtf8", "{\n\"a\": \"\xff\"}", "a.json:2: expected JSON, found "},
        BrokenFile{"NumberTooLarge", "{\n\"a\": 1e999}",
                   "a.json:2: expected JSON, found a number that is too large"},
        BrokenFile{"NulAlone", std::string(1, '\0'),
                   "a.json:1: expected JSON, found a NUL byte at column 1"},
        BrokenFile{"NulAtTheEnd", std::string("{\n}\0", 4),
                   "a.json:2: expected JSON, found a NUL byte at column 2"},
        BrokenFile{"ObjectBehindANul", std::string("{}\n\0{\"a\": 1}", 12),
                   "a.json:2: expected JSON, found a NUL byte at column 1"},
        BrokenFile{"NulBehindANumber", std::string("7\0", 2),
                   "a.json:1: expected JSON, found a NUL byte at column 2"},
        BrokenFile{"NulInAnObject", std::string("{\"a\":\n \0 1}", 12),
                   "a.json:2: expected JSON, found a NUL byte at column 2"},
        BrokenFile{"NulInAText", std::string("{\"a\":\n\"x\0\"}", 11),
                   "a.json:2: expected JSON, found a NUL byte at column 3"},
        BrokenFile{"TooDeep", "\n" + std::string(101, '['),
                   "a.json:2: expected at most 100 levels of nesting, found more"}),
    [](const auto& row) { return std::string(row.param.name); });

struct WrongValue
{
    const char* name;
    const char* text;  // the value, standing on line 2
    const char* found; // how it is named
};

static void PrintTo(const WrongValue& row, std::ostream* out)
{
    *out << row.name;
}

class WrongKind : public testing::TestWithParam<WrongValue>
{
protected:
    JsonDocument document = parsed(std::string("{\n\"a\": ") + GetParam().text + "\n}");
    JsonValue value = document.root().at("a");

    void expectTold(const std::string& expected, const std::string& used) const
    {
        EXPECT_EQ(told(document), Lines{"a.json:2: a: expected " + expected + ", found " +
                                        GetParam().found + "; using " + used + " instead"});
    }
};

using NoInteger = WrongKind;
using NoText = WrongKind;
using NoBoolean = WrongKind;
using NoChoice = WrongKind;
using NoArray = WrongKind;
using NoObject = WrongKind;

namespace {

std::string rowName(const testing::TestParamInfo<WrongValue>& row)
{
    return row.param.name;
}

} // namespace

TEST_P(NoInteger, GivesTheFallbackAndIsReported)
{
    EXPECT_EQ(value.integer(-5, 10, 3), 3);
    expectTold("an integer from -5 to 10", "3");
}

INSTANTIATE_TEST_SUITE_P(Values, NoInteger,
                         testing::Values(WrongValue{"Null", "null", "null"},
                                         WrongValue{"True", "true", "true"},
                                         WrongValue{"Text", "\"7\"", "the text \"7\""},
                                         WrongValue{"Fraction", "5.0", "the number 5.0"},
                                         WrongValue{"Exponent", "1e0", "the number 1e0"},
                                         WrongValue{"OneBelow", "-6", "the number -6"},
                                         WrongValue{"OneAbove", "11", "the number 11"},
                                         WrongValue{"WrapsIn64Bits", "18446744073709551615",
                                                    "the number 18446744073709551615"},
                                         WrongValue{"Array", "[1]", "an array"},
                                         WrongValue{"Object", "{}", "an object"}),
                         rowName);

TEST_P(NoText, GivesTheFallbackAndIsReported)
{
    EXPECT_EQ(value.text("none"), "none");
    expectTold("a text", "\"none\"");
}

INSTANTIATE_TEST_SUITE_P(Values, NoText,
                         testing::Values(WrongValue{"Null", "null", "null"},
                                         WrongValue{"Integer", "7", "the number 7"},
                                         WrongValue{"False", "false", "false"},
                                         WrongValue{"Array", "[\"x\"]", "an array"}),
                         rowName);

TEST_P(NoBoolean, GivesTheFallbackAndIsReported)
{
    EXPECT_TRUE(value.boolean(true));
    expectTold("true or false", "true");
}

INSTANTIATE_TEST_SUITE_P(Values, NoBoolean,
                         testing::Values(WrongValue{"Zero", "0", "the number 0"},
                                         WrongValue{"Text", "\"false\"", "the text \"false\""}),
                         rowName);

TEST_P(NoChoice, GivesTheFallbackAndIsReported)
{
    EXPECT_EQ(value.choice({"machine", "scenario"}, "machine"), "machine");
    expectTold("one of the texts \"machine\", \"scenario\"", "\"machine\"");
}

INSTANTIATE_TEST_SUITE_P(Values, NoChoice,
                         testing::Values(WrongValue{"Integer", "1", "the number 1"},
                                         WrongValue{"OtherText", "\"Machine\"",
                                                    "the text \"Machine\""}),
                         rowName);

TEST_P(NoArray, IsEmptyAndIsReported)
{
    EXPECT_TRUE(value.elements().empty());
    expectTold("an array", "an empty one");
}

INSTANTIATE_TEST_SUITE_P(Values, NoArray, testing::Values(WrongValue{"Object", "{}", "an object"}),
                         rowName);

TEST_P(NoObject, IsEmptyAndIsReportedOnce)
{
    EXPECT_FALSE(value.at("x").present());
    EXPECT_FALSE(value.at("y").present());
    EXPECT_TRUE(value.members().empty());
    expectTold("an object", "an empty one");
}

INSTANTIATE_TEST_SUITE_P(Values, NoObject,
                         testing::Values(WrongValue{"Array", "[1]", "an array"},
                                         WrongValue{"Null", "null", "null"}),
                         rowName);

TEST(ManyProblems, AreCountedWhereNobodyWouldReadThemAll)
{
    std::string text = "{\n\"a\": 0";
    for (int i = 0; i < 250; ++i)
        text += ",\n\"a\": 0";
    const JsonDocument document = parsed(text + "}");
    const Lines lines = told(document);
    ASSERT_EQ(lines.size(), 101U);
    EXPECT_EQ(document.problemsLeftOut(), 150U);
    EXPECT_EQ(lines[100], "a.json:102: expected at most 100 problems, found 150 more");
    EXPECT_EQ(document.root().size(), 1U);
}

TEST(JsonLimits, TellsWhyAFileIsBrokenWhateverElseIsWrong)
{
    std::string text = "{\"a\":0";
    for (int i = 0; i < 1000; ++i)
        text += ",\"a\":0";
    const JsonDocument document = parsed(text + "\n,]");
    EXPECT_EQ(base::describe("a.json", document.refusal()),
              "a.json:2: expected JSON, found a syntax error at column 2; using the defaults "
              "instead");
}
