#include "base/json_document.h"

#include <gtest/gtest.h>

#include "settings/json_told.h"

using base::JsonDocument;
using base::JsonKind;
using base::JsonValue;

TEST(JsonDocumentTest, GivesTheValuesOfTheFile)
{
    const JsonDocument document =
        parsed("{\"low\": -9223372036854775808, \"high\": 9223372036854775807,"
               " \"text\": \"\\u00e9\", \"yes\": true, \"pick\": \"b\", \"list\": [4, 5]}");
    const JsonValue root = document.root();
    EXPECT_EQ(root.at("low").integer(INT64_MIN, INT64_MAX, 0), INT64_MIN);
    EXPECT_EQ(root.at("high").integer(INT64_MIN, INT64_MAX, 0), INT64_MAX);
    EXPECT_EQ(root.at("text").text(""), "\xc3\xa9");
    EXPECT_TRUE(root.at("yes").boolean(false));
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
    EXPECT_TRUE(absent.boolean(true));
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
    document.rejectUnknownKeys("nothing");
    EXPECT_EQ(told(document), (Lines{"a.json:3: dealy: expected one of the keys delay, in, found "
                                     "an unknown key; using nothing instead",
                                     "a.json:4: in.x: expected one of the keys y, found an unknown "
                                     "key; using nothing instead"}));
}

TEST(JsonDocumentTest, KnowsAllKeysOfAnObjectThatWasEnumerated)
{
    JsonDocument document = parsed("{\"Home\": 1, \"Work\": 2}");
    EXPECT_EQ(document.root().members().size(), 2U);
    document.root().at("Other");
    document.rejectUnknownKeys("nothing");
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
    document.rejectUnknownKeys("nothing");
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
