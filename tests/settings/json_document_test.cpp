#include "base/json_document.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <sys/stat.h>
#include <unistd.h>

using base::JsonDocument;
using base::JsonKind;
using base::JsonValue;

namespace {

std::vector<std::string> told(const JsonDocument& document)
{
    std::vector<std::string> lines;
    for (const base::JsonProblem& problem : document.problems())
        lines.push_back(base::describe(document.path(), problem));
    return lines;
}

JsonDocument parsed(const std::string& text)
{
    return JsonDocument::parse(text, "a.json");
}

using Lines = std::vector<std::string>;

} // namespace

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
    JsonDocument m_document = parsed(std::string("{\n\"a\": ") + GetParam().text + "\n}");
    JsonValue m_value = m_document.root().at("a");

    void expectTold(const std::string& expected, const std::string& used) const
    {
        EXPECT_EQ(told(m_document), Lines{"a.json:2: a: expected " + expected + ", found " +
                                          GetParam().found + "; using " + used + " instead"});
    }
};

using NoInteger = WrongKind;
using NoText = WrongKind;
using NoTruth = WrongKind;
using NoChoice = WrongKind;
using NoArray = WrongKind;
using NoObject = WrongKind;

static std::string rowName(const testing::TestParamInfo<WrongValue>& row)
{
    return row.param.name;
}

TEST_P(NoInteger, GivesTheFallbackAndIsReported)
{
    EXPECT_EQ(m_value.integer(-5, 10, 3), 3);
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
    EXPECT_EQ(m_value.text("none"), "none");
    expectTold("a text", "\"none\"");
}

INSTANTIATE_TEST_SUITE_P(Values, NoText,
                         testing::Values(WrongValue{"Null", "null", "null"},
                                         WrongValue{"Integer", "7", "the number 7"},
                                         WrongValue{"False", "false", "false"},
                                         WrongValue{"Array", "[\"x\"]", "an array"}),
                         rowName);

TEST_P(NoTruth, GivesTheFallbackAndIsReported)
{
    EXPECT_TRUE(m_value.truth(true));
    expectTold("true or false", "true");
}

INSTANTIATE_TEST_SUITE_P(Values, NoTruth,
                         testing::Values(WrongValue{"Zero", "0", "the number 0"},
                                         WrongValue{"Text", "\"false\"", "the text \"false\""}),
                         rowName);

TEST_P(NoChoice, GivesTheFallbackAndIsReported)
{
    EXPECT_EQ(m_value.choice({"machine", "scenario"}, "machine"), "machine");
    expectTold("one of the texts \"machine\", \"scenario\"", "\"machine\"");
}

INSTANTIATE_TEST_SUITE_P(Values, NoChoice,
                         testing::Values(WrongValue{"Integer", "1", "the number 1"},
                                         WrongValue{"OtherText", "\"Machine\"",
                                                    "the text \"Machine\""}),
                         rowName);

TEST_P(NoArray, IsEmptyAndIsReported)
{
    EXPECT_TRUE(m_value.elements().empty());
    expectTold("an array", "an empty one");
}

INSTANTIATE_TEST_SUITE_P(Values, NoArray, testing::Values(WrongValue{"Object", "{}", "an object"}),
                         rowName);

TEST_P(NoObject, IsEmptyAndIsReportedOnce)
{
    EXPECT_FALSE(m_value.at("x").present());
    EXPECT_FALSE(m_value.at("y").present());
    EXPECT_TRUE(m_value.members().empty());
    expectTold("an object", "an empty one");
}

INSTANTIATE_TEST_SUITE_P(Values, NoObject,
                         testing::Values(WrongValue{"Array", "[1]", "an array"},
                                         WrongValue{"Null", "null", "null"}),
                         rowName);

TEST(JsonDocumentTest, GivesTheValuesOfTheFile)
{
    const JsonDocument document =
        parsed("{\"low\": -9223372036854775808, \"high\": 9223372036854775807,"
               " \"text\": \"\\u00e9\", \"yes\": true, \"pick\": \"b\", \"list\": [4, 5]}");
    const JsonValue root = document.root();
    EXPECT_EQ(root.at("low").integer(INT64_MIN, INT64_MAX, 0), INT64_MIN);
    EXPECT_EQ(root.at("high").integer(INT64_MIN, INT64_MAX, 0), INT64_MAX);
    EXPECT_EQ(root.at("text").text(""), "\xc3\xa9");
    EXPECT_TRUE(root.at("yes").truth(false));
    EXPECT_EQ(root.at("pick").choice({"a", "b"}, "a"), "b");
    ASSERT_EQ(root.at("list").elements().size(), 2U);
    EXPECT_EQ(root.at("list").elements()[1].integer(5, 5, 0), 5);
    EXPECT_EQ(told(document), Lines{});
}

TEST(JsonDocumentTest, GivesTheFallbackForAnAbsentValueWithoutReportingIt)
{
    const JsonDocument document = parsed("{}");
    const JsonValue absent = document.root().at("a").at("b");
    EXPECT_EQ(absent.kind(), JsonKind::Absent);
    EXPECT_EQ(absent.integer(0, 1, 8), 8);
    EXPECT_EQ(absent.text("x"), "x");
    EXPECT_TRUE(absent.truth(true));
    EXPECT_TRUE(absent.elements().empty());
    EXPECT_EQ(told(document), Lines{});
}

TEST(JsonDocumentTest, KeepsTheLineOnWhichEachValueBegins)
{
    const JsonDocument document = parsed("\n{\n\"n\": 1\n,\n\"t\":\n\"x\",\n\"l\": [\n2\n,\n3],\n"
                                         "\"o\":\n{\n\"z\": true}}\n");
    const JsonValue root = document.root();
    EXPECT_EQ(root.line(), 2);
    EXPECT_EQ(root.at("n").line(), 3);
    EXPECT_EQ(root.at("t").line(), 6);
    EXPECT_EQ(root.at("l").line(), 7);
    EXPECT_EQ(root.at("l").elements()[0].line(), 8);
    EXPECT_EQ(root.at("l").elements()[1].line(), 10);
    EXPECT_EQ(root.at("o").line(), 12);
    EXPECT_EQ(root.at("o").at("z").line(), 13);
    EXPECT_EQ(root.at("none").line(), 0);
}

TEST(JsonDocumentTest, CountsLinesThatEndInCarriageReturnAndNewlineOnce)
{
    const JsonDocument document = parsed("{\r\n\"a\": 1,\r\n\"b\": 2\r\n}\r\n");
    EXPECT_EQ(document.root().at("b").line(), 3);
}

TEST(JsonDocumentTest, NamesAValueByItsKeysAndItsPlaceInArrays)
{
    const JsonDocument document = parsed("{\"a\": [0, {\"b\": \"x\"}]}");
    document.root().at("a").elements()[1].at("b").integer(0, 1, 1);
    EXPECT_EQ(told(document), Lines{"a.json:1: a[1].b: expected an integer from 0 to 1, found the "
                                    "text \"x\"; using 1 instead"});
}

TEST(JsonDocumentTest, NamesAKeyOfControlCharactersEscaped)
{
    const JsonDocument document = parsed("{\"\\u001b[2J\": {\"\": 1}}");
    const JsonValue value = document.root().at("\x1b[2J").at("");
    EXPECT_EQ(value.key(), "\"\\u001b[2J\".\"\"");
}

TEST(JsonDocumentTest, ShortensALongTextInAMessage)
{
    const JsonDocument document = parsed("{\"a\": \"" + std::string(5000, 'x') + "\"}");
    EXPECT_EQ(document.root().at("a").description(),
              "the text \"" + std::string(60, 'x') + "\"...");
}

TEST(JsonDocumentTest, ShowsControlCharactersOfATextEscaped)
{
    const JsonDocument document = parsed("{\"a\": \"\\u001b[2J\\n\"}");
    EXPECT_EQ(document.root().at("a").description(), "the text \"\\u001b[2J\\n\"");
}

TEST(JsonDocumentTest, ReportsKeysThatNobodyAskedFor)
{
    JsonDocument document = parsed("{\n\"delay\": 1,\n\"dealy\": 2,\n\"in\": {\"x\": 1}\n}");
    document.root().at("delay").integer(0, 9, 0);
    document.root().at("in").at("y");
    document.rejectUnknownKeys();
    EXPECT_EQ(told(document),
              (Lines{"a.json:3: dealy: expected one of the keys delay, in, found an unknown key",
                     "a.json:4: in.x: expected one of the keys y, found an unknown key"}));
}

TEST(JsonDocumentTest, KnowsAllKeysOfAnObjectThatWasEnumerated)
{
    JsonDocument document = parsed("{\"Home\": 1, \"Work\": 2}");
    EXPECT_EQ(document.root().members().size(), 2U);
    document.root().at("Other");
    document.rejectUnknownKeys();
    EXPECT_EQ(told(document), Lines{});
}

TEST(JsonDocumentTest, ReportsAKeyThatStandsTwiceAndUsesTheLast)
{
    const JsonDocument document = parsed("{\n\"a\": 1,\n\"b\": 2,\n\"a\": 3\n}");
    EXPECT_EQ(document.root().at("a").integer(0, 9, 0), 3);
    EXPECT_EQ(document.root().members().size(), 2U);
    EXPECT_EQ(told(document), Lines{"a.json:4: a: expected each key once, found the key again "
                                    "after line 2; using the last one instead"});
}

TEST(JsonDocumentTest, TellsProblemsInTheOrderOfTheFile)
{
    JsonDocument document = parsed("{\n\"a\": \"x\",\n\"z\": 1,\n\"b\": \"y\"}");
    document.root().at("b").integer(0, 1, 0);
    document.root().at("a").integer(0, 1, 0);
    document.rejectUnknownKeys();
    std::vector<int> lines;
    for (const base::JsonProblem& problem : document.problems())
        lines.push_back(problem.line);
    EXPECT_EQ(lines, (std::vector<int>{2, 3, 4}));
}

TEST(JsonDocumentTest, ReadsAnObjectOfManyMembersInTime)
{
    std::string text = "{";
    for (int i = 0; i < 100000; ++i)
        text += "\"key" + std::to_string(i) + "\": 1,\n";
    const JsonDocument document = parsed(text + "\"end\": 2}");
    EXPECT_EQ(document.root().at("end").integer(0, 9, 0), 2);
    EXPECT_EQ(document.root().at("end").line(), 100001);
}

TEST(JsonDocumentTest, KeepsItsValuesValidWhenItMoves)
{
    JsonDocument first = parsed("{\"a\": 5}");
    const JsonValue value = first.root().at("a");
    const JsonDocument second = std::move(first);
    EXPECT_EQ(value.integer(0, 9, 0), 5);
}

struct Change
{
    const char* name;
    const char* before;
    const char* after; // with "b" being 7
};

static void PrintTo(const Change& row, std::ostream* out)
{
    *out << row.name;
}

class ChangedMember : public testing::TestWithParam<Change>
{};

TEST_P(ChangedMember, LeavesEverythingElseAsItIs)
{
    const JsonDocument document = parsed(GetParam().before);
    const std::string after = document.withMember("b", "7");
    EXPECT_EQ(after, GetParam().after);
    const JsonDocument again = parsed(after);
    EXPECT_EQ(again.root().at("b").integer(0, 9, 0), 7);
}

INSTANTIATE_TEST_SUITE_P(
    Replaced, ChangedMember,
    testing::Values(Change{"Number", "{\"b\":1}", "{\"b\":7}"},
                    Change{"LongNumber", "{ \"b\" : -12.5e3 }", "{ \"b\" : 7 }"},
                    Change{"NumberBeforeAComma", "{\"b\": 12,\"c\": 3}", "{\"b\": 7,\"c\": 3}"},
                    Change{"NumberAtALineEnd", "{\n\"b\":\n12\n}\n", "{\n\"b\":\n7\n}\n"},
                    Change{"Text", "{\"b\": \"x\\\"}\", \"c\": 1}", "{\"b\": 7, \"c\": 1}"},
                    Change{"TextOfColons", "{\"b\": \": :\"}", "{\"b\": 7}"},
                    Change{"True", "{\"b\": true}", "{\"b\": 7}"},
                    Change{"Null", "{\"b\":null ,\"c\":1}", "{\"b\":7 ,\"c\":1}"},
                    Change{"Array", "{\"b\": [1, {\"b\": 2}] }", "{\"b\": 7 }"},
                    Change{"Object", "{\"b\": {\"b\": {}}}", "{\"b\": 7}"},
                    Change{"NotTheInnerOne", "{\"a\": {\"b\": 1}, \"b\": 2}",
                           "{\"a\": {\"b\": 1}, \"b\": 7}"},
                    Change{"EscapedName", "{\"\\u0062\": 1}", "{\"\\u0062\": 7}"},
                    Change{"TheLastOfADuplicate", "{\"b\": 1, \"b\": 2}", "{\"b\": 1, \"b\": 7}"}),
    [](const auto& row) { return std::string(row.param.name); });

INSTANTIATE_TEST_SUITE_P(
    Added, ChangedMember,
    testing::Values(Change{"ToNothing", "{}", "{\n  \"b\": 7\n}"},
                    Change{"ToBlanks", " { \n } ", " {\n  \"b\": 7\n} "},
                    Change{"InOneLine", "{\"a\": 1}", "{\"a\": 1, \"b\": 7}"},
                    Change{"InALineOfItsOwn", "{\n    \"a\": 1\n}\n",
                           "{\n    \"a\": 1,\n    \"b\": 7\n}\n"},
                    Change{"WithTheLineEndsOfTheFile", "{\r\n\t\"a\": []\r\n}\r\n",
                           "{\r\n\t\"a\": [],\r\n\t\"b\": 7\r\n}\r\n"},
                    Change{"BehindABrace", "{\"a\": {\"b\": 1}}", "{\"a\": {\"b\": 1}, \"b\": 7}"}),
    [](const auto& row) { return std::string(row.param.name); });

// A random value, at most `depth` levels deep.
static nlohmann::json randomValue(std::mt19937& random, int depth)
{
    switch (random() % (depth > 0 ? 7 : 5)) {
    case 0:
        return nullptr;
    case 1:
        return random() % 2 == 0;
    case 2:
        return static_cast<int>(random());
    case 3:
        return 0.5 * static_cast<int>(random() % 1000);
    case 4:
        return std::string(random() % 4, static_cast<char>(32 + random() % 90));
    case 5: {
        nlohmann::json array = nlohmann::json::array();
        for (unsigned long i = random() % 4; i > 0; --i)
            array.push_back(randomValue(random, depth - 1));
        return array;
    }
    }
    nlohmann::json object = nlohmann::json::object();
    for (unsigned long i = random() % 5; i > 0; --i)
        object[std::string(1, static_cast<char>('a' + random() % 4))] =
            randomValue(random, depth - 1);
    return object;
}

TEST(JsonDocumentTest, ChangesNothingButTheMemberInRandomDocuments)
{
    for (unsigned int seed = 0; seed < 2000; ++seed) {
        std::mt19937 random(seed);
        nlohmann::json json = randomValue(random, 4);
        if (!json.is_object())
            continue;
        const JsonDocument document = parsed(json.dump(static_cast<int>(random() % 6) - 1));
        json["b"] = "new";
        EXPECT_EQ(nlohmann::json::parse(document.withMember("b", "\"new\"")), json)
            << "seed " << seed;
    }
}

TEST(JsonDocumentTest, WritesANameWithItsEscapes)
{
    EXPECT_EQ(parsed("{}").withMember("a\"\\", "[]"), "{\n  \"a\\\"\\\\\": []\n}");
}

TEST(JsonDocumentTest, HasNoMemberToChangeWhereItIsNoObject)
{
    EXPECT_EQ(parsed("[1]").withMember("b", "7"), "");
    EXPECT_EQ(parsed("{").withMember("b", "7"), "");
}

class JsonFile : public testing::Test
{
protected:
    void SetUp() override { ASSERT_NE(::mkdtemp(m_folder), nullptr); }
    void TearDown() override
    {
        std::remove(path().c_str());
        ::rmdir(m_folder);
    }
    std::string path() const { return std::string(m_folder) + "/f.json"; }
    void write(const std::string& text) const { std::ofstream(path()) << text; }

    char m_folder[32] = "/tmp/json-document-XXXXXX";
};

TEST_F(JsonFile, ReadsAFile)
{
    write("{\"a\": 5}");
    const JsonDocument document = JsonDocument::read(path());
    EXPECT_EQ(document.state(), JsonDocument::State::Good);
    EXPECT_EQ(document.root().at("a").integer(0, 9, 0), 5);
    EXPECT_EQ(document.source(), "{\"a\": 5}");
    EXPECT_EQ(document.path(), path());
}

TEST_F(JsonFile, ThatIsMissingIsNoProblem)
{
    const JsonDocument document = JsonDocument::read(path());
    EXPECT_EQ(document.state(), JsonDocument::State::Missing);
    EXPECT_EQ(document.root().at("a").integer(0, 9, 6), 6);
    EXPECT_EQ(told(document), Lines{});
}

TEST_F(JsonFile, ThatIsMissingCanBeBegun)
{
    EXPECT_EQ(JsonDocument::read(path()).withMember("b", "7"), "{\n  \"b\": 7\n}\n");
    EXPECT_EQ(JsonDocument::read(m_folder).withMember("b", "7"), "");
}

TEST_F(JsonFile, ThatIsAFolderIsReported)
{
    const JsonDocument document = JsonDocument::read(m_folder, "no settings");
    EXPECT_EQ(document.state(), JsonDocument::State::Unreadable);
    EXPECT_EQ(told(document), Lines{std::string(m_folder) + ": expected a readable file, found a "
                                                            "folder; using no settings instead"});
}

TEST_F(JsonFile, ThatIsAPipeIsReportedWithoutWaiting)
{
    ASSERT_EQ(::mkfifo(path().c_str(), 0600), 0);
    EXPECT_EQ(JsonDocument::read(path()).state(), JsonDocument::State::Unreadable);
}

TEST_F(JsonFile, BelowSomethingThatIsNoFolderIsReported)
{
    write("{}");
    const JsonDocument document = JsonDocument::read(path() + "/x");
    EXPECT_EQ(document.state(), JsonDocument::State::Unreadable);
    EXPECT_EQ(told(document), Lines{path() + "/x: expected a readable file, found Not a directory; "
                                             "using the defaults instead"});
}

TEST_F(JsonFile, OfMoreThanFourMebibytesIsReported)
{
    write("{}" + std::string(4 * 1024 * 1024 - 1, ' '));
    const JsonDocument document = JsonDocument::read(path());
    EXPECT_EQ(document.state(), JsonDocument::State::Unreadable);
    EXPECT_EQ(told(document), Lines{path() + ": expected a readable file, found more than 4 MiB; "
                                             "using the defaults instead"});
}

TEST_F(JsonFile, OfExactlyFourMebibytesIsRead)
{
    write("{}" + std::string(4 * 1024 * 1024 - 2, ' '));
    EXPECT_EQ(JsonDocument::read(path()).state(), JsonDocument::State::Good);
}
