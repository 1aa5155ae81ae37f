// Changing one member of a document and nothing else.
#include <random>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "settings/json_told.h"

using base::JsonDocument;

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

class RemovedMember : public testing::TestWithParam<Change>
{};

TEST_P(RemovedMember, LeavesEverythingElseAsItIs)
{
    EXPECT_EQ(parsed(GetParam().before).withoutMember("b"), GetParam().after);
}

INSTANTIATE_TEST_SUITE_P(
    Removed, RemovedMember,
    testing::Values(
        Change{"TheOnlyOne", "{\n  \"b\": 1\n}\n", "{\n}\n"},
        Change{"TheOnlyOneInOneLine", "{\"b\":1}", "{}"},
        Change{"TheFirst", "{\n  \"b\": 1,\n  \"c\": 2\n}\n", "{\n  \"c\": 2\n}\n"},
        Change{"OneBetween", "{\"a\": 1 , \"b\": 2 , \"c\": 3}", "{\"a\": 1 , \"c\": 3}"},
        Change{"TheLast", "{\n  \"a\": 1,\n  \"b\": [2]\n}\n", "{\n  \"a\": 1\n}\n"},
        Change{"NumberAtTheEnd", "{\"a\":1,\"b\":-2.5e3}", "{\"a\":1}"},
        Change{"TextOfBracesAndCommas", "{\"b\": \"},\\\"\", \"c\": 1}", "{\"c\": 1}"},
        Change{"NotTheInnerOne", "{\"a\": {\"b\": 1}, \"b\": 2}", "{\"a\": {\"b\": 1}}"},
        Change{"EscapedName", "{\"a\\\\\": 1, \"\\u0062\": 2}", "{\"a\\\\\": 1}"},
        Change{"EveryoneOfADuplicate", "{\"b\": 1, \"a\": 2, \"b\": 3, \"b\": 4}", "{\"a\": 2}"},
        Change{"NoneThatIsNotThere", "{\"a\": 1}", ""}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(RemovedMemberOf, AnythingButAnObjectIsNothing)
{
    EXPECT_EQ(parsed("[1]").withoutMember("b"), "");
    EXPECT_EQ(parsed("{").withoutMember("b"), "");
}

TEST(RemovedMemberOf, ANameOfQuotesAndBackslashesIsFound)
{
    const std::string name = "x\\\"";
    EXPECT_EQ(parsed("{\"a\": 1, \"x\\\\\\\"\": 2}").withoutMember(name), "{\"a\": 1}");
}

namespace {

// A random value, at most `depth` levels deep.
nlohmann::json randomValue(std::mt19937& random, int depth)
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

} // namespace

TEST(JsonMember, IsAllThatChangesInRandomDocuments)
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

TEST(JsonMember, IsWrittenWithTheEscapesOfItsName)
{
    EXPECT_EQ(parsed("{}").withMember("a\"\\", "[]"), "{\n  \"a\\\"\\\\\": []\n}");
}

TEST(JsonMember, IsNotThereWhereTheDocumentIsNoObject)
{
    EXPECT_EQ(parsed("[1]").withMember("b", "7"), "");
    EXPECT_EQ(parsed("{").withMember("b", "7"), "");
}
